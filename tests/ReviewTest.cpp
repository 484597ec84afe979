// Every rule of the review, by one change to a sound batch that trips it and one just beside it.
#include <algorithm>
#include <map>
#include <set>

#include "app/BatchReview.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "review/Review.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;
using enum HeaderField;

// A laboratory whose package nobody has anything to say about: a blank and samples "S1", "S2" ...,
// with acetone found in the blank and benzene in the samples.
struct Lab {
    explicit Lab(int samples = 2) {
        std::string levels;
        std::string dataFiles;
        for (const char* level : {"1", "2", "3", "4", "5"}) {
            const std::string name = std::string("l") + level + ".d";
            texts[name] =
                "DATA FILE\n05/16/2005 0" + std::string(level) + ":00\nC:\\" + name + "\n";
            dataFiles += "C:\\" + name + ";";
        }
        texts["run.cal"] = "Date\nData File(s):\n" + dataFiles + "\n\nCalibration data\n\n";
        texts["chk.d"] = "DATA FILE\n05/18/2005 08:10\nC:\\chk.d\n";
        texts["run.check"] = "Check\n\n\n\n\nData File: C:\\chk.d\n\nN;Compound\n-----\n";
        for (const std::string name : {"Benzene", "Acetone", "Toluene-d8"}) {
            texts["run.cal"] += Block(name, "A");
            texts["run.check"] += "1;" + name + ";401.0;A;50.00;x;x;397.0;-1.0;9.0;1.5\n";
        }
        for (const std::string_view name : InternalStandardNames) {
            texts["run.cal"] += Block(std::string(name), "I");
            texts["run.check"] +=
                "9;" + std::string(name) + ";1.0;I;50.00;x;x;1.0;0.0;1000.0;7.25\n";
        }
        texts["criteria.txt"] = "RF criteria\nBenzene;100;20\nAcetone;100;20\nToluene-d8;1;20\n";
        texts["ranges.txt"] = "Recovery ranges\n1\nToluene-d8;80;120;70;130;50;150\n";
        batch.SampleList.emplace();
        for (int i = 0; i <= samples; ++i) {
            AddSample(i == 0 ? "VBLK" : "S" + std::to_string(i), i == 0);
        }
        batch.Files.LabBlank = batch.SampleList->front().FileName;
        batch.Files.Calib = PathOf("run.cal");
        batch.Files.CheckCal = PathOf("run.check");
        batch.BlankHitFlags = {false, true};
        entries.Ranges.FileName = PathOf("ranges.txt");
        entries.Tune = {"BFB",        "MS1",   "BFB.D",
                        "05/18/2005", "08:00", {"20", "50", "100", "7", "1", "80", "7", "97", "7"}};
        entries.InitialCalibration = {
            "05/16/2005 01:00", "05/16/2005 05:00", {"l1.d", "l2.d", "l3.d", "l4.d", "l5.d"}};
        entries.ContinuingCalibration = {"vstd050a",
                                         "chk.d",
                                         PathOf("criteria.txt"),
                                         "MS1",
                                         "05/18/2005 08:10",
                                         "05/16/2005 01:00",
                                         "05/16/2005 05:00"};
        entries.StandardSummary = {
            "vstd050a", "chk.d", "05/18/2005 08:10", "05/16/2005", "05/16/2005", {"1", "1", "1"}, 2,
            {},         {}};
    }

    static std::string Block(const std::string& name, const char* kind) {
        std::string line = name;
        for (const char* level : {"5.00;1;1;400", "10.00;1;1;402", "50.00;1;1;401",
                                  "100.00;1;1;400", "200.00;1;1;402"}) {
            line += ";" + std::string(level) + ".0;85;1000.0";
        }
        return line + ";11111;CAS\nline 2\n" + kind + "\n";
    }

    std::string PathOf(const std::string& name) const { return (dir.Path() / name).string(); }

    void AddSample(const std::string& number, bool blank) {
        const std::string file = LowerCase(number) + ".prn";
        texts[file] =
            "Quantitation Report\nAcquisition Date: 05/18/2005 " +
            std::string(blank ? "09:00" : "10:00") + "\nSample Size: 5.0\nSample ID: " + number +
            "\nClient Sample: L-" + number + "\nLab File ID: " + number +
            ".D; Instrument: MS1\n\nCompound#;Compound\n1;Benzene;" + (blank ? "U5.0" : "12.0") +
            ";1;1;;71-43-2\n2;Acetone;" + (blank ? "6.0" : "U5.0") +
            ";1;1;;67-64-1\n\nVolatile\nHeads\n"
            "1;Toluene-d8;100.0\n\n-----     Internal Standard Data\nHeads\n";
        for (const std::string_view name : InternalStandardNames) {
            texts[file] += std::string(name) + ";1000.0;7.25\n";
        }
        SampleRecord& record = batch.SampleList->emplace_back();
        record.FileName = PathOf(file);
        record.CompoundCount = 2;
        record.TicList = TicListType{{{"1-1-1", "indane", "1.0", "5", "NJ"}}};
        record.Header.Values() = {number,
                                  "L-" + number,
                                  "Fairhaven",
                                  "TQW-1",
                                  "FHAV",
                                  "34417",
                                  "1284",
                                  "SDG1",
                                  "WATER",
                                  "5.0",
                                  "mL",
                                  number + ".D",
                                  "LOW",
                                  blank ? "  /  /       :  " : "05/04/2005 10:00",
                                  blank ? "05/18/2005 09:00" : "05/18/2005 10:00",
                                  "N/A",
                                  "VOCOL",
                                  "0.25",
                                  "1",
                                  "N/A",
                                  "N/A",
                                  "5.0",
                                  "ug/L",
                                  "MS1",
                                  "N",
                                  "30"};
        if (!blank) {
            batch.Files.QFiles.push_back(record.FileName);
        }
    }

    std::vector<Finding> Review() {
        for (const auto& [name, text] : texts) {
            dir.Write(name, text);
        }
        TimesMetrics metrics;
        return ReviewAsPrinted({batch, entries, flags}, 0, metrics, limits);
    }

    TempDir dir;
    std::map<std::string, std::string> texts;  // of the files, as Review writes them
    Batch batch;
    Entries entries;
    BatchFlags flags;
    ReviewLimits limits;
};

// ---- Changes to it

using Change = std::function<void(Lab&)>;

// Of samples, from 1; 0 is the blank.
Change Header(HeaderField field, const std::string& value, std::vector<std::size_t> samples = {1}) {
    return [=](Lab& lab) {
        for (const std::size_t sample : samples) {
            lab.batch.SampleList->at(sample).Header[field] = value;
        }
    };
}

Change Edit(const std::string& file, const std::string& from, const std::string& to) {
    return [=](Lab& lab) {
        std::string& text = lab.texts.at(file);
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << file << " lacks " << from;
        text.replace(at, from.size(), to);
    };
}

// The file is not there.
Change Without(const std::string& file) {
    return [=](Lab& lab) { lab.texts.erase(file); };
}

Change EditAll(const std::string& file, const std::string& from, const std::string& to) {
    return [=](Lab& lab) {
        std::string& text = lab.texts.at(file);
        for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
            text.replace(at, from.size(), to);
        }
    };
}

Change RsdDifference(double percent) {
    return [=](Lab& lab) { lab.limits.RsdDifference = percent; };
}

// One after the other.
Change Both(Change one, Change other) {
    return [=](Lab& lab) {
        one(lab);
        other(lab);
    };
}

Change Soil(const std::string& moisture) {
    return Both(Header(kMatrix, "SOIL"), Header(kPercentMoisture, moisture));
}

Change Ion(std::size_t ion, const std::string& abundance) {
    return [=](Lab& lab) { lab.entries.Tune.Abundances.at(ion) = abundance; };
}

Change Typed(std::string ContinuingCalibrationEntry::*member, const std::string& text) {
    return [=](Lab& lab) { lab.entries.ContinuingCalibration.*member = text; };
}

Change Samples(int count) {
    return [=](Lab& lab) {
        for (int i = 3; i <= count; ++i) {
            lab.AddSample("S" + std::to_string(i), false);
        }
    };
}

Change Tics(std::size_t count, const std::string& name = "indane") {
    return [=](Lab& lab) {
        lab.batch.SampleList->at(1).TicList =
            TicListType(count, TicEntry{{"1-1-1", name, "1.0", "5", ""}});
    };
}

void Nothing(Lab& /*lab*/) {}

struct RuleCase {
    std::string Rule;
    Change Trips;
    std::string Line;  // behind severity and rule
    Change Beside;
};

// The initial calibration is dated by its raw data files.
Change Dated(const std::string& first, const std::string& last) {
    return Both(Edit("l1.d", "05/16/2005 01:00", first), Edit("l5.d", "05/16/2005 05:00", last));
}

Change Untyped() {
    return [](Lab& lab) {
        lab.entries.InitialCalibration = {};
        lab.entries.ContinuingCalibration.FirstStandard = kEmptyDateTimeMask;
        lab.entries.ContinuingCalibration.LastStandard = kEmptyDateTimeMask;
    };
}

std::vector<RuleCase> Cases() {
    using Continuing = ContinuingCalibrationEntry;
    return {
        {"header.empty", Header(kColumnLength, " "),
         "form 1: S1: Column Length is empty. [Form 1 Header, Column Length]",
         Header(kDateReceived, " ")},
        {"header.not-received", Header(kDateReceived, "  /  /       :  "),
         "form 1: S1: Date Received is empty; only the lab blank has none. [Form 1 Header, Date "
         "Received]",
         Header(kDateReceived, "  /  /       :  ", {0})},
        {"header.placeholder", Header(kLabName, "lab", {1, 2}),
         "form 1: S1 and 1 more: Lab Name is \"Lab\", as the dialog has it at first. [Form 1 "
         "Header, Lab Name]",
         Header(kLabName, "Labs")},
        {"header.carried-over", Header(kLabFileId, "S1.D", {2}),
         "form 1: S2: Lab File ID is \"S1.D\" like another sample's; the report has \"S2.D\". "
         "[Form "
         "1 Header, Lab File ID]",
         Header(kLabFileId, "X.D", {2})},
        {"header.other-than-report", Header(kDateAnalyzed, "05/18/2005 10:01"),
         "form 1: S1: Date Analyzed is \"05/18/2005 10:01\"; the report has \"05/18/2005 10:00\". "
         "[Form 1 Header, Date Analyzed]",
         Header(kDateAnalyzed, "5/18/2005 10:00:59 AM")},
        {"header.choice", Header(kLevel, "low"),
         "form 1: S1: Level is \"low\", none of TRACE, LOW and MED. [Form 1 Header, Level]",
         Header(kLevel, "TRACE")},
        {"header.units", Header(kConcUnits, "ug/kg"),
         "form 1: S1: Unit of Concentration is \"ug/kg\" for WATER. [Form 1 Header, Unit of "
         "Concentration]",
         Both(Header(kConcUnits, "ug/kg"), Both(Header(kWtVolUnits, "g"), Soil("0")))},
        {"header.moisture", Soil("101"),
         "form 1: S1: % Moisture is \"101\" for SOIL, which has a number from 0 to 100. [Form 1 "
         "Header, % Moisture]",
         Soil("100")},
        {"header.volumes", Header(kSoilAliquotVolume, "100"),
         "form 1: S1: Soil Aliquot Volume is \"100\" for WATER, which has N/A. [Form 1 Header, "
         "Soil "
         "Aliquot Volume]",
         Both(Soil("0"), Both(Header(kSoilAliquotVolume, "1"), Header(kSoilExtractVolume, "1")))},
        {"header.number", Header(kDilutionFactor, "0"),
         "form 1: S1: Dilution Factor is \"0\", not a number above 0. [Form 1 Header, Dilution "
         "Factor]",
         Header(kDilutionFactor, "0.1")},
        {"header.date", Header(kDateReceived, "10:00"),
         "form 1: S1: Date Received is \"10:00\", which is no date. [Form 1 Header, Date Received]",
         Header(kDateReceived, "05/04/2005   :  ")},
        {"header.date", Header(kDateAnalyzed, "05/18/2005   :  "),
         "form 1: S1: Date Analyzed is \"05/18/2005   :  \", which is no date. [Form 1 Header, "
         "Date "
         "Analyzed]",
         Header(kDateAnalyzed, "05/18/2005 10:00")},
        {"header.package", Header(kSdgNo, "SDG2"),
         "form 1: S1: SDG No. is \"SDG2\"; most samples have \"SDG1\". [Form 1 Header, SDG No.]",
         Header(kSdgNo, "SDG2", {0, 1, 2})},
        {"header.instrument", Header(kGcColumn, "DB-624"),
         "form 1: S1: GC Column is \"DB-624\"; most samples have \"VOCOL\". [Form 1 Header, GC "
         "Column]",
         Header(kGcColumn, "VOCOL ")},
        {"header.sample-twice", Header(kZovSampleNo, "s1", {2}),
         "form 1: s1: s2.prn has the sample number of s1.prn. [Form 1 Header, ZOV Sample No.]",
         Header(kZovSampleNo, "S1DL", {2})},
        {"header.blank-as-sample",
         [](Lab& lab) { lab.batch.SampleList->at(1).FileName = lab.batch.Files.LabBlank; },
         "form 1: S1: The lab blank's report vblk.prn is also one of the samples. [Load Files, "
         "Quant. Files]",
         [](Lab& lab) { lab.batch.Files.LabBlank.clear(); }},

        {"time.received-after-analyzed", Header(kDateReceived, "05/18/2005 10:01"),
         "form 1: S1: Received 05/18/2005 10:01 and analyzed 05/18/2005 10:00, before it was "
         "there. "
         "[Form 1 Header, Date Received]",
         Header(kDateReceived, "05/18/2005 10:00")},
        {"time.holding", Header(kDateReceived, "05/04/2005 00:00"),
         "form 1: S1: Received 05/04/2005 00:00 and analyzed 05/18/2005 10:00, 14.42 days later; "
         "the limit is 14. [Form 1 Header, Date Received]",
         Both(Header(kDateReceived, "05/04/2005 10:00"),
              Header(kDateReceived, "05/04/2005   :  ", {2}))},
        {"time.received-after-analyzed",
         Both(Header(kDateReceived, "05/19/2005 00:00"), Header(kDateAnalyzed, "05/18/2005")),
         "form 1: S1: Received 05/19/2005 00:00 and analyzed 05/18/2005, before it was there. "
         "[Form "
         "1 Header, Date Received]",
         Both(Header(kDateReceived, "05/18/2005 23:59"), Header(kDateAnalyzed, "05/18/2005"))},
        {"time.before-tune", Header(kDateAnalyzed, "05/17/2005"),
         "form 5: S1: Analyzed 05/17/2005, before the BFB injection at 05/18/2005 08:00. [Form 1 "
         "Header, Date Analyzed]",
         Header(kDateAnalyzed, "05/18/2005")},
        {"time.before-tune", Header(kDateAnalyzed, "05/18/2005 07:59"),
         "form 5: S1: Analyzed 05/18/2005 07:59, before the BFB injection at 05/18/2005 08:00. "
         "[Form 1 Header, Date Analyzed]",
         Header(kDateAnalyzed, "05/18/2005 08:00")},
        {"time.after-tune", Header(kDateAnalyzed, "05/18/2005 20:01"),
         "form 5: S1: Analyzed 05/18/2005 20:01, more than 12 hours after the BFB injection at "
         "05/18/2005 08:00. [Form 1 Header, Date Analyzed]",
         Header(kDateAnalyzed, "05/18/2005 20:00")},
        {"time.before-blank", Header(kDateAnalyzed, "05/18/2005 08:59"),
         "form 4: S1: Analyzed 05/18/2005 08:59, before the lab blank at 05/18/2005 09:00. [Form 1 "
         "Header, Date Analyzed]",
         Header(kDateAnalyzed, "05/18/2005 09:00")},
        {"time.after-blank", Header(kDateAnalyzed, "05/18/2005 21:01"),
         "form 4: S1: Analyzed 05/18/2005 21:01, more than 12 hours after the lab blank at "
         "05/18/2005 09:00. [Form 1 Header, Date Analyzed]",
         Header(kDateAnalyzed, "05/18/2005 21:00")},
        {"time.before-standard", Header(kDateAnalyzed, "05/18/2005 08:09"),
         "form 8: S1: Analyzed 05/18/2005 08:09, before the continuing calibration standard at "
         "05/18/2005 08:10. [Form 1 Header, Date Analyzed]",
         Header(kDateAnalyzed, "05/18/2005 08:10")},
        {"time.after-standard", Header(kDateAnalyzed, "05/18/2005 20:11"),
         "form 8: S1: Analyzed 05/18/2005 20:11, more than 12 hours after the continuing "
         "calibration standard at 05/18/2005 08:10. [Form 1 Header, Date Analyzed]",
         Header(kDateAnalyzed, "05/18/2005 20:10")},
        {"time.calibration-after-samples",
         Both(Untyped(), Dated("05/16/2005 01:00", "05/18/2005 08:11")),
         "form 6: The last standard of the initial calibration is of 05/18/2005 08:11, after the "
         "continuing calibration standard at 05/18/2005 08:10. [Initial calibration (Form VI), "
         "Last standard]",
         Both(Untyped(), Dated("05/16/2005 01:00", "05/18/2005 08:10"))},
        {"time.standards-order",
         [](Lab& lab) { lab.entries.InitialCalibration.FirstStandard = "05/16/2005 05:01"; },
         "form 7: The first standard is of 05/16/2005 05:01, after the last one of 05/16/2005 "
         "05:00. [Continuing calibration (Form VII), First standard]",
         [](Lab& lab) { lab.entries.InitialCalibration.FirstStandard = "05/16/2005 05:00"; }},

        {"entry.calibration-dates", Typed(&Continuing::LastStandard, "05/16/2005 05:01"),
         "form 7: Form VII's entry has 05/16/2005 05:01 for the last standard, and the levels' raw "
         "data "
         "05/16/2005 05:00. [Continuing calibration (Form VII), Last standard]",
         Typed(&Continuing::LastStandard, "5/16/2005 05:00:59 AM")},
        {"entry.standard-date", Typed(&Continuing::AnalysisDateTime, "05/18/2005 08:11"),
         "form 7: Form VII's entry has 05/18/2005 08:11 for the analysis of the standard, and its "
         "raw data "
         "file 05/18/2005 08:10. [Continuing calibration (Form VII), Date analyzed]",
         Typed(&Continuing::AnalysisDateTime, "  /  /       :  ")},
        {"entry.standard-file", Typed(&Continuing::LabFileId, "chk2.d"),
         "form 7: Form VII's entry has chk2.d for the lab file ID of the standard, and its raw "
         "data file "
         "chk.d. [Continuing calibration (Form VII), Lab file ID]",
         Typed(&Continuing::LabFileId, "CHK.D")},
        {"entry.standard-sample", Typed(&Continuing::SampleNo, "vstd050b"),
         "form 8: Form VIII's entry has vstd050a for the sample number of the standard, and Form "
         "VII's "
         "entry vstd050b. [Internal standards (Form VIII), Sample no.]",
         Typed(&Continuing::SampleNo, "VSTD050A")},
        {"entry.letter-case", Typed(&Continuing::SampleNo, "VSTD050A"),
         "form 7: Form VII's entry has vstd050a for the sample number of the standard, and Form "
         "VIII's "
         "entry VSTD050A. [Continuing calibration (Form VII), Sample no.]",
         Typed(&Continuing::SampleNo, "vstd050b ")},

        {"tune.ion-range", Ion(0, "40.1"),
         "form 5: m/e 50 is 40.1, outside 15.0 - 40.0% of mass 95. [BFB tune (Form V), Abundance, "
         "row 1]",
         Ion(0, "40.0")},
        {"tune.173-limit", Ion(4, "2.0"),
         "form 5: m/e 173 is 2.0 and is not flagged, but its criterion says: Less than 2.0% of "
         "mass "
         "174. [BFB tune (Form V), Abundance, row 5]",
         Ion(4, "1.99")},
        {"tune.base-peak", Ion(2, "99.9"),
         "form 5: m/e 95 is 99.9, and the base peak is 100. [BFB tune (Form V), Abundance, row 3]",
         Ion(2, "100.0")},
        {"tune.ratio", Ion(7, "76"),
         "form 5: m/e 176 is 76, which is 95.0% of m/e 174 at 80: typed relative to m/e 95? [BFB "
         "tune (Form V), Abundance, row 8]",
         Ion(7, "75.9")},

        {"calibration.rsd", Edit("run.cal", "400.0", "1000.0"),
         "form 6: benzene: The %RSD is 45.97, above 30. [Load Files, Calib. File]",
         Both(Edit("run.cal", "400.0", "1000.0"), [](Lab& lab) { lab.limits.MaxRsd = 45.97; })},
        {"calibration.rsd-of-sample", Edit("run.cal", "400.0", "720.0"),
         "form 6: benzene: The %RSD is 27.42 with n levels, and 30.66 with n - 1, above 30. [Load "
         "Files, Calib. File]",
         Edit("run.cal", "400.0", "700.0")},
        {"calibration.rounded", Both(Edit("run.cal", "400.0", "400.4"), RsdDifference(0.015)),
         "form 6: benzene: The %RSD is 0.22 of response factors rounded to whole numbers, and 0.20 "
         "of those in the report. [Load Files, Calib. File]",
         Both(Edit("run.cal", "400.0", "400.4"), RsdDifference(0.02))},
        {"calibration.levels", Edit("run.cal", "C:\\l5.d;", ""),
         "form 6: The initial calibration has 4 levels, fewer than 5. [Load Files, Calib. File]",
         Nothing},
        {"calibration.unused-level", Edit("run.cal", "11111;", "10101;"),
         "form 6: benzene: Not used: levels 2 and 4 of 5. [Load Files, Calib. File]",
         Edit("run.cal", "11111;", "111110;")},
        {"calibration.rf-number", Edit("run.cal", "400.0", "n/a"),
         "form 6: benzene: The response factor \"n/a\" is no number. [Load Files, Calib. File]",
         Both(Edit("run.cal", "400.0", "n/a"), Edit("run.cal", "11111;", "01111;"))},
        {"calibration.level-head", EditAll("run.cal", "50.00", "50"),
         "form 6: level 3: The columns are headed \"5\", and the amount is 50. [Load Files, Calib. "
         "File]",
         EditAll("run.cal", "50.00", "55")},
        {"calibration.data-file-missing", [](Lab& lab) { lab.texts.erase("l5.d"); },
         "form 6: level 5: The raw data file l5.d is not there. [Initial calibration (Form VI), "
         "Lab file ID 5]",
         Edit("l5.d", "DATA FILE", "no title")},
        {"calibration.lab-file-id",
         [](Lab& lab) {
             lab.flags.InitCalEntered = true;
             lab.texts.erase("l4.d");
         },
         "form 6: level 4: The lab file ID is \"l5.d\", and the raw data file's \"l4.d\". [Initial "
         "calibration (Form VI), Lab file ID 4]",
         [](Lab& lab) {
             lab.flags.InitCalEntered = true;
             lab.texts.erase("l5.d");
         }},

        {"check.amount-head", EditAll("run.check", "50.00", "50"),
         "form 7: The standard's column is headed \"5\", and the amount is 50. [Load Files, "
         "Continuing Cal]",
         EditAll("run.check", "50.00", "55")},
        {"check.mean-rf", Edit("run.check", ";401.0;", ";402.5;"),
         "form 7: benzene: The mean RF is 403, and on Form VI 401. [Load Files, Continuing Cal]",
         Edit("run.check", ";401.0;", ";402.4;")},
        {"check.percent-d", Edit("run.check", ";-1.0;", ";-1.2;"),
         "form 7: benzene: The %D is -1.2, and -1.0 of RF 397.0 and mean RF 401.0. [Load Files, "
         "Continuing Cal]",
         Edit("run.check", ";-1.0;", ";1.0;")},
        {"check.above-maximum", Edit("criteria.txt", "100;20", "100;0.9"),
         "form 7: benzene: The %D is -1.0, beyond MAX %D 0.9. [Load Files, Continuing Cal]",
         Edit("criteria.txt", "100;20", "100;1")},
        {"check.below-minimum", Edit("criteria.txt", "100;20", "398;20"),
         "form 7: benzene: The RF is 397, below MIN RF 398. [Load Files, Continuing Cal]",
         Edit("criteria.txt", "100;20", "397;20")},
        {"check.no-criteria", Edit("criteria.txt", "Benzene", "Benzin"),
         "form 7: benzene: The RF criteria file has no limits for it. [Continuing calibration "
         "(Form "
         "VII), RF criteria file]",
         Edit("criteria.txt", "Benzene;100", "benzene;")},
        {"check.no-criteria", Edit("criteria.txt", "Benzene;100;20", "Benzene;;x20"),
         "form 7: benzene: The limit \"x20\" of the RF criteria file is no number. [Continuing "
         "calibration (Form VII), RF criteria file]",
         Edit("criteria.txt", "Benzene;100;20", "Benzene;;20")},
        {"check.order", Edit("run.check", ";Benzene;", ";Benzin;"),
         "form 7: Row 1 of the check report is \"benzin\", and of the calibration report "
         "\"benzene\". [Load Files, Continuing Cal]",
         Edit("run.check", ";Benzene;", ";BENZENE ;")},

        {"sample.report-missing", [](Lab& lab) { lab.texts.erase("s1.prn"); },
         "form 1: S1: The report s1.prn is not there. [Load Files, Quant. Files]", Nothing},
        {"sample.report-changed", Edit("s1.prn", "1;Benzene;12.0;1;1;;", "1;Benzene;12.0;1;"),
         "form 1: S1: s1.prn is damaged, or has changed since it was loaded. Compound row 1 is cut "
         "short. Please use Data Files|Load Files menu option to load it again. [Load Files, "
         "Quant. "
         "Files]",
         Edit("s1.prn", "12.0", "13.0")},
        {"sample.rows", Edit("s1.prn", "Benzene", "Benzin"),
         "form 1: S1: Compound 1 is \"Benzin\", and in VBLK \"Benzene\". [Load Files, Quant. "
         "Files]",
         Edit("s1.prn", "Benzene", " Benzene")},
        {"sample.above-calibration", Edit("s1.prn", "12.0", "205"),
         "form 1: S1, Benzene: 210 ug/L without E; the highest level is 200 ug/L. [Load Files, "
         "Quant. Files]",
         Both(Edit("s1.prn", "12.0", "2000"), Header(kDilutionFactor, "10"))},
        {"sample.blank-flag",
         Both(Edit("vblk.prn", "Acetone;6.0", "Acetone;U6.0"),
              Edit("s1.prn", "Acetone;U5.0", "Acetone;7.0")),
         "form 1: S1, Acetone: Flagged B, and the lab blank's report has no hit of it now. [Load "
         "Files, Lab Blank]",
         Edit("s1.prn", "Acetone;U5.0", "Acetone;7.0")},
        {"sample.blank-flag-missing", Edit("vblk.prn", "Benzene;U5.0", "Benzene;6.0"),
         "form 1: S1 and 1 more, Benzene: Not flagged B, and the lab blank's report has a hit of "
         "it "
         "now. [Load Files, Lab Blank]",
         Edit("vblk.prn", "Benzene;U5.0;1;1;", "Benzene;6.0;1;1;J")},
        {"tic.incomplete", Tics(2, " "),
         "form tic: S1: Row 1 lacks a CAS number, name, retention time or concentration. [Enter "
         "TICs, row 1]\nform tic: S1: Row 2 lacks a CAS number, name, retention time or "
         "concentration. [Enter TICs, row 2]",
         Tics(2)},
        {"tic.repeated", Tics(31),
         "form tic: S1: 31 compounds: the second page prints the first ones again, instead of "
         "those "
         "from 31 on. [Enter TICs, row 31]",
         Tics(30)},
        {"tic.none", [](Lab& lab) { lab.batch.SampleList->at(2).TicList.reset(); },
         "form tic: S2: No tentatively identified compounds are entered: nothing prints. [Enter "
         "TICs]",
         Nothing},
        {"sample.recovery", Edit("s1.prn", "100.0", "120.5"),
         "form 2: S1, toluene-d8: The recovery is 121%, outside (80-120). [Load Files, Quant. "
         "Files]",
         Edit("s1.prn", "100.0", "120.4")},
        {"sample.recovery-number", Edit("s1.prn", "100.0", "n/a"),
         "form 2: S1, toluene-d8: The recovery \"n/a\" is no number and cannot be compared. [Load "
         "Files, Quant. Files]",
         Edit("s1.prn", "100.0", " 80 ")},
        {"sample.recovery-range", Edit("ranges.txt", "Toluene-d8", "Toluene"),
         "form 2: toluene-d8: The recovery ranges file has no range for it. [Recovery ranges (Form "
         "II), Ranges file]",
         Edit("ranges.txt", "Toluene-d8", "TOLUENE-D8 ")},
        {"sample.recovery-order", Edit("s2.prn", "Toluene-d8", "Benzene-d6"),
         "form 2: S2: Compound 1 is \"benzene-d6\", and in VBLK \"toluene-d8\". [Load Files, "
         "Quant. "
         "Files]",
         Edit("s2.prn", "Toluene-d8", "TOLUENE-D8")},
        {"sample.standard", Edit("s1.prn", ";1000.0;", ";2001.9;"),
         "form 8: S1, chlorobenzene-d5: The area is 2001, outside 500 to 2000. [Load Files, Quant. "
         "Files]",
         Edit("s1.prn", ";1000.0;", ";2000.9;")},
        {"sample.standard-missing",
         Both(Edit("s1.prn", "chlorobenzene-d5;1000.0", "chlorobenzene-d5;"),
              Edit("run.check", ";1000.0;", ";;")),
         "form 8: chlorobenzene-d5: The 12 hour standard has no area. [Load Files, Continuing "
         "Cal]\nform 8: S1, chlorobenzene-d5: The report has no area. [Load Files, Quant. Files]",
         Edit("s1.prn", ";1000.0;", ";0;")},
        {"sample.standard-number",
         Both(Edit("s1.prn", ";7.25", ";7,25"), Edit("run.check", ";7.25", ";7,25")),
         "form 8: chlorobenzene-d5: The 12 hour standard's retention time \"7,25\" is no number "
         "and "
         "gives no limits. [Load Files, Continuing Cal]\nform 8: S1, chlorobenzene-d5: The "
         "retention time \"7,25\" is no number and cannot be compared. [Load Files, Quant. Files]",
         Edit("s1.prn", ";7.25", ";7.75")},

        {"form.refused", [](Lab& lab) { lab.entries.Tune.LabFileId = " "; },
         "form 5: Does not print: All Fields Are Required: Please enter a value. [BFB tune (Form "
         "V), Lab file ID]",
         Nothing},
        {"form.refused", Without("criteria.txt"),
         "form 7: Does not print: File Could Not Be Opened: Please select another continuing  "
         "calibration RF limits file. [Continuing calibration (Form VII), RF criteria file]",
         Nothing},
        {"form.refused", Without("run.cal"),
         "form 6: Does not print: Calibration File Could Not Be Opened: Please use Data Files|Load "
         "Files menu option and verify the calibration file. [Load Files, Calib. File]\n"
         "form 7: Does not print: Calibration File Could Not Be Opened: Please use Data Files|Load "
         "Files menu option to specify an initial calibration file.  Print Form 6 before 7 to "
         "obtain calibration times [Load Files, Calib. File]\n"
         "form 8: Does not print: Calibration File Could Not Be Opened: Please use Data Files|Load "
         "menu option to specify a calibration or continuing calibration file. [Load Files, Calib. "
         "File]",
         Nothing},
        {"form.refused", Header(kDateAnalyzed, "05/18/2005   :  "),
         "form 4: S1: Does not print: Incorrect Time Format: The analysis date of sample S1, "
         "05/18/2005   :  , is not a date and time. [Form 1 Header, Date Analyzed]\n"
         "form 5: S1: Does not print: Incorrect Time Format: The analysis date of sample S1, "
         "05/18/2005   :  , is not a date and time. [Form 1 Header, Date Analyzed]",
         Nothing},
        {"form.message",
         [](Lab& lab) {
             lab.entries.Comments.Lines = {"one", "two", "three"};
         },
         "form 4: Comments Too Long: The two lines for comments on Form IV have no room for this: "
         "Line 3: three [Method blank comments (Form IV), Line 1]",
         [](Lab& lab) {
             lab.entries.Comments.Lines = {"one", "two"};
         }},
        {"form.page-count", Samples(29),
         "form 2: The last page is \"Page 1 of 2\". [Load Files, Quant. Files]", Samples(28)},
        {"form.wide-value", Header(kCaseNo, "34417890"),
         "form 1: S1: Case No.: \"34417890\" is 0.56 inches wide, and its line 0.50 inches. [Form "
         "1 "
         "Header, Case No.]\nform tic: S1: Case No.: \"34417890\" is 0.56 inches wide, and its "
         "line "
         "0.50 inches. [Form 1 Header, Case No.]",
         Header(kCaseNo, "3441789")},
        {"form.text-over-line", Header(kLabSampleId, "WWWWWWWWWWWW"),
         "form 4: S1: \"WWWWWWWWWWWW\" runs over the line at 4.25 inches. [Form 1 Header, Lab "
         "Sample "
         "ID]\nform 5: S1: \"WWWWWWWWWWWW\" runs over the line at 3.75 inches. [Form 1 Header, Lab "
         "Sample ID]",
         Header(kLabSampleId, "WWWWWWWW")},
        {"form.text-off-page", Header(kZovSampleNo, "WWWWWWWWWWWWWWWWW"),
         "form 1: WWWWWWWWWWWWWWWWW: \"WWWWWWWWWWWWWWWWW\" runs off the page. [Form 1 Header, ZOV "
         "Sample No.]\nform tic: WWWWWWWWWWWWWWWWW: \"WWWWWWWWWWWWWWWWW\" runs off the page. "
         "[Form 1 Header, ZOV Sample No.]",
         Header(kZovSampleNo, std::string(15, 'W'))},
        {"form.prints", Edit("s1.prn", "2;Acetone", "3;x;1;1;1;;1\n2;Acetone"),
         "form 1: VBLK and 2 more: Prints 1 page.\nform tic: VBLK and 2 more: Prints 1 page.\n"
         "form 2: Prints 1 page.\nform 4: Prints 1 page.\nform 5: Prints 1 page.\n"
         "form 6: Prints 1 page.\nform 7: Prints 1 page.\nform 8: Prints 1 page.",
         [](Lab& lab) { lab.batch.SampleList.reset(); }},
    };
}

std::string LinesOf(const Lab& lab, const std::vector<Finding>& findings, std::string_view rule) {
    std::string lines;
    for (const Finding& finding : findings) {
        if (finding.Rule->Id == rule) {
            const std::string line = FindingLine(finding, lab.batch);
            lines += (lines.empty() ? "" : "\n") + line.substr(line.find(": form") + 2);
        }
    }
    return lines;
}

TEST(Review, TellsEachRuleFromWhatIsBesideIt) {
    std::multiset<std::string, std::less<>> looked;
    for (const RuleCase& rule : Cases()) {
        Lab tripped;
        rule.Trips(tripped);
        EXPECT_EQ(LinesOf(tripped, tripped.Review(), rule.Rule), rule.Line) << rule.Rule;
        Lab beside;
        rule.Beside(beside);
        EXPECT_EQ(LinesOf(beside, beside.Review(), rule.Rule), "") << "beside " << rule.Rule;
        looked.insert(rule.Rule);
    }
    for (const Rule& rule : ReviewRules()) {
        EXPECT_GE(looked.count(rule.Id), 1U) << rule.Id << " has no case";
    }
}

TEST(Review, SaysNothingOfASoundBatch) {
    Lab lab;
    std::string lines;
    for (const Finding& finding : lab.Review()) {
        lines +=
            finding.Rule->Severity == Severity::kNote ? "" : FindingLine(finding, lab.batch) + "\n";
    }
    EXPECT_EQ(lines, "");
}

// By form, then sample; and what leads somewhere leads to a control that is there.
TEST(Review, OrdersWhatItFindsAndNamesControls) {
    std::string controls;
    for (const char* folder : {"dialogs", "data"}) {
        for (const auto& file : fs::directory_iterator(fs::path(QFR_SOURCE_DIR) / folder)) {
            controls += file.path().extension() == ".ui" ? ReadAll(file.path()) : "";
        }
    }
    Lab lab;
    std::vector<Finding> findings;
    for (const RuleCase& rule : Cases()) {
        Lab one;
        rule.Trips(one);
        std::ranges::move(one.Review(), std::back_inserter(findings));
    }
    for (const Finding& finding : findings) {
        EXPECT_TRUE(finding.Mend.Control.empty() ||
                    Contains(controls, "name=\"" + finding.Mend.Control + "\""))
            << finding.Rule->Id << ": " << finding.Mend.Control;
    }
    Both(Header(kLabName, "Lab", {2}), Both(Header(kCaseNo, "", {1}), Ion(0, "41")))(lab);
    lab.entries.Comments.Lines = {"", "", "x"};
    std::string order;
    for (const Finding& finding : lab.Review()) {
        if (finding.Rule->Severity != Severity::kNote) {
            order += std::string(finding.Rule->Id) + "|";
        }
    }
    EXPECT_EQ(order, "header.empty|header.placeholder|header.package|form.message|tune.ion-range|");
}

TEST(Review, SaysOfTheExampleWhatSomebodyHasApproved) {
    const fs::path file = ExampleDir() / "example.qff";
    const auto saved =
        std::get<SavedBatch>(RestoreBatch(LineReader::Open(file).value(), file.string()));
    TimesMetrics metrics;
    std::string lines;
    for (const Finding& finding : ReviewAsPrinted(saved, 0, metrics, {})) {
        lines += FindingLine(finding, saved.Batch) + "\n";
    }
    EXPECT_EQ(lines, ReadAll(TestData("review.txt")));
}

TEST(ReviewLimits, AreReadOrRefusedWhole) {
    const auto read = [](const std::string& text) -> std::string {
        const auto result = ReadReviewLimits(LineReader(text), "C:\\lab\\x.txt");
        const auto* limits = std::get_if<ReviewLimits>(&result);
        return limits != nullptr
                   ? FormatGeneral(limits->MaxRsd) + " " + FormatGeneral(limits->HoldingDays)
                   : AsLine(std::get<Message>(result));
    };
    const auto refused = [](const std::string& text) {
        return "File Error: x.txt " + text + ". No limits are taken from it.";
    };
    EXPECT_EQ(read(" MAX-RSD = 20.5 # since May\n\n# holding-days = 3\nholding-days=10"),
              "20.5 10");
    EXPECT_EQ(read(""), "30 14");
    EXPECT_EQ(read("max-rsd 20"), refused("cannot be used: line 1 is no \"name = value\""));
    EXPECT_EQ(read("\nmax-rsd = -1"),
              refused("cannot be used: line 2 gives max-rsd no number from 0 up"));
    EXPECT_EQ(read("max-rsd = 1\nMax-RSD = 1"),
              refused("cannot be used: line 2 names max-rsd once more"));
    EXPECT_THAT(read("rsd = 1"),
                testing::HasSubstr("names no limit; these are known: holding-days, "));
    EXPECT_EQ(read(std::string(1'000, '\n')), "30 14");
    EXPECT_EQ(read(std::string(1'001, '\n')), refused("has more than 1000 lines"));
}

}  // namespace
}  // namespace qfr::test
