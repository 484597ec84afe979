#include <gtest/gtest.h>

#include "data/TuneRules.h"

namespace qfr::test {
namespace {

TEST(TuneRules, OkNamesTheFirstFault) {
    const TuneEntry good = {"B1",    "G1",
                            "B.D",   " 5/18/2005",
                            " 8:30", {"18.1", "45", "0", "6", "0", " 7 ", "7", "9e1", "-1"}};
    constexpr char kDate[] = "Enter the date/time format as\n MM/DD/YYYY or HH:MI";
    constexpr char kNumber[] = "Entry must be a valid real number.";
    const struct {
        void (*spoil)(TuneEntry&);
        const char* control;
        int row;
        const char* text;
    } cases[] = {
        {[](TuneEntry& t) { t = {}; }, "SampleEdit", 0, "Please enter a value."},
        {[](TuneEntry& t) { t.InstrumentId = t.InjectionDate = " "; }, "InstrEdit", 0,
         "Please enter a value."},
        {[](TuneEntry& t) { t.InjectionDate = t.LabFileId = "  /  /    "; }, "MaskEdit1", 0, kDate},
        {[](TuneEntry& t) { t.InjectionDate = "02/30/2005"; }, "MaskEdit1", 0, kDate},
        {[](TuneEntry& t) { t.LabFileId = t.InjectionTime = ""; }, "FileEdit", 0,
         "Please enter a value."},
        {[](TuneEntry& t) { t.InjectionTime = t.Abundances[0] = "  :  "; }, "MaskEdit2", 0, kDate},
        {[](TuneEntry& t) { t.Abundances[2] = t.Abundances[8] = "1,5"; }, "StringGrid1", 3,
         kNumber},
        {[](TuneEntry& t) { t.Abundances[8] = ""; }, "StringGrid1", 9, kNumber},
    };
    EXPECT_FALSE(CheckTune(good));
    for (const auto& c : cases) {
        TuneEntry tune = good;
        c.spoil(tune);
        const EntryFault fault = CheckTune(tune).value();
        EXPECT_EQ(fault.Control, c.control);
        EXPECT_EQ(fault.Row, c.row);
        EXPECT_EQ(fault.Message.text, c.text);
        // The same box complains when it is left; the grid is checked on OK alone.
        EXPECT_EQ(CheckTuneBox(tune, c.control).has_value(), c.row == 0) << c.control;
    }
}

}  // namespace
}  // namespace qfr::test
