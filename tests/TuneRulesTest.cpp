#include <gtest/gtest.h>

#include "data/TuneRules.h"

namespace qfr::test {
namespace {

TuneEntry GoodTune() {
    return {"BFB01",   "GCMS2",
            "BFB01.D", " 5/18/2005",
            " 8:30",   {"18.1", "45", "100", "6.6", "0.0", " 75 ", "7.1", "9.75e1", "-1"}};
}

TEST(TuneRules, OkNamesTheFirstFault) {
    constexpr char kValue[] = "Please enter a value.";
    constexpr char kDate[] = "Enter the date/time format as\n MM/DD/YYYY or HH:MI";
    constexpr char kNumber[] = "Entry must be a valid real number.";
    const struct {
        void (*spoil)(TuneEntry&);
        const char* control;
        int row;
        const char* text;
        const char* title;
    } cases[] = {
        {[](TuneEntry& t) { t = {}; }, "SampleEdit", 0, kValue, "All Fields Are Required"},
        {[](TuneEntry& t) { t.InstrumentId = t.InjectionDate = " "; }, "InstrEdit", 0, kValue,
         "All Fields Are Required"},
        {[](TuneEntry& t) { t.InjectionDate = t.LabFileId = "  /  /    "; }, "MaskEdit1", 0, kDate,
         "Incorrect Time Format"},
        {[](TuneEntry& t) { t.InjectionDate = "02/30/2005"; }, "MaskEdit1", 0, kDate,
         "Incorrect Time Format"},
        {[](TuneEntry& t) { t.LabFileId = t.InjectionTime = ""; }, "FileEdit", 0, kValue,
         "All Fields Are Required"},
        {[](TuneEntry& t) { t.InjectionTime = t.Abundances[0] = "  :  "; }, "MaskEdit2", 0, kDate,
         "Incorrect Time Format"},
        {[](TuneEntry& t) { t.InjectionTime = "24:00"; }, "MaskEdit2", 0, kDate,
         "Incorrect Time Format"},
        {[](TuneEntry& t) { t.Abundances[0] = ""; }, "StringGrid1", 1, kNumber, "Incorrect Entry"},
        {[](TuneEntry& t) { t.Abundances[2] = t.Abundances[8] = "1,5"; }, "StringGrid1", 3, kNumber,
         "Incorrect Entry"},
        {[](TuneEntry& t) { t.Abundances[8] = "0x1"; }, "StringGrid1", 9, kNumber,
         "Incorrect Entry"},
    };
    EXPECT_FALSE(CheckTune(GoodTune()));
    for (const auto& c : cases) {
        TuneEntry tune = GoodTune();
        c.spoil(tune);
        const auto fault = CheckTune(tune);
        ASSERT_TRUE(fault) << c.control << c.row;
        EXPECT_EQ(fault->Control, c.control);
        EXPECT_EQ(fault->Row, c.row);
        EXPECT_EQ(fault->Message.text, c.text);
        EXPECT_EQ(fault->Message.title, c.title);
        // The same box complains when it is left; the grid is checked on OK alone.
        EXPECT_EQ(CheckTuneBox(tune, c.control).has_value(), c.row == 0) << c.control;
    }
}

TEST(TuneRules, ShowingTakesTheHeadersInstrument) {
    SampleHeader header;
    header[HeaderField::kInstrumentId] = "GCMS7";
    TuneEntry expected = GoodTune();
    TuneEntry tune = expected;
    ShowTune(tune, header);
    expected.InstrumentId = "GCMS7";
    EXPECT_EQ(tune, expected);
}

TEST(TuneRules, DialogAndFormWordTwoCriteriaDifferently) {
    for (const TuneIon& ion : kTuneIons) {
        const bool differs = ion.Mass == "174" || ion.Mass == "176";
        EXPECT_EQ(ion.DialogCriterion != ion.FormCriterion(), differs) << ion.Mass;
    }
}

}  // namespace
}  // namespace qfr::test
