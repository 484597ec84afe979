#include "review/FormValues.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <type_traits>
#include <utility>

#include "data/HeaderFields.h"
#include "data/TuneRules.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr bool kNumber = true;

// A text of a content, or of one of its rows, and the name of its column.
template <typename Row>
struct Value {
    std::string_view name;
    std::string Row::*text;
    bool isNumber = false;
};

using enum HeaderField;

// Of the two laboratory rows, which every form has.
constexpr HeaderField kLabRows[] = {kLabName, kContract, kLabCode, kCaseNo, kModRefNo, kSdgNo};

// What else of the header each form states, and its own texts beside that.
constexpr HeaderField kForm1Header[] = {
    kMatrix,   kLabSampleId,    kSampleWtVol,       kWtVolUnits,        kLabFileId,
    kLevel,    kDateReceived,   kPercentMoisture,   kDateAnalyzed,      kGcColumn,
    kColumnId, kDilutionFactor, kSoilExtractVolume, kSoilAliquotVolume, kPurgeVolume,
    kConcUnits};
template <typename Content>
constexpr Value<Content> kSampleNo[] = {{"sampleNo", &Content::SampleNo}};

constexpr HeaderField kForm2Header[] = {kLevel};

constexpr HeaderField kForm4Header[] = {kLabFileId, kLabSampleId, kInstrumentId, kMatrix,
                                        kLevel,     kGcColumn,    kColumnId,     kHeatedPurge};
constexpr Value<Form4Content> kForm4Fields[] = {
    {"sampleNo", &Form4Content::SampleNo},
    {"dateAnalyzed", &Form4Content::DateAnalyzed},
    {"timeAnalyzed", &Form4Content::TimeAnalyzed},
};

constexpr HeaderField kForm5Header[] = {kInstrumentId, kGcColumn, kColumnId};
constexpr Value<Form5Content> kForm5Fields[] = {
    {"sampleNo", &Form5Content::SampleNo},
    {"labFileId", &Form5Content::LabFileId},
    {"injectionDate", &Form5Content::InjectionDate},
    {"injectionTime", &Form5Content::InjectionTime},
};

constexpr HeaderField kForm6Header[] = {kInstrumentId, kHeatedPurge, kPurgeVolume,
                                        kGcColumn,     kColumnId,    kColumnLength};
constexpr Value<Form6Content> kForm6Fields[] = {
    {"firstCalibrationDate", &Form6Content::FirstDate},
    {"firstCalibrationTime", &Form6Content::FirstTime},
    {"lastCalibrationDate", &Form6Content::LastDate},
    {"lastCalibrationTime", &Form6Content::LastTime},
};

constexpr HeaderField kForm7Header[] = {kInstrumentId, kHeatedPurge,  kGcColumn,
                                        kColumnId,     kColumnLength, kPurgeVolume};
constexpr Value<Form7Content> kForm7Fields[] = {
    {"sampleNo", &Form7Content::SampleNo},
    {"labFileId", &Form7Content::LabFileId},
    {"calibrationDate", &Form7Content::CalibrationDate},
    {"calibrationTime", &Form7Content::CalibrationTime},
    {"firstCalibrationDate", &Form7Content::FirstDate},
    {"firstCalibrationTime", &Form7Content::FirstTime},
    {"lastCalibrationDate", &Form7Content::LastDate},
    {"lastCalibrationTime", &Form7Content::LastTime},
    {"amount", &Form7Content::Amount, kNumber},
};

constexpr HeaderField kForm8Header[] = {kGcColumn, kColumnId, kInstrumentId, kHeatedPurge};
constexpr Value<Form8Content> kForm8Fields[] = {
    {"sampleNo", &Form8Content::SampleNo},
    {"labFileId", &Form8Content::LabFileId},
    {"firstCalibrationDate", &Form8Content::FirstCalibrationDate},
    {"lastCalibrationDate", &Form8Content::LastCalibrationDate},
    {"dateAnalyzed", &Form8Content::DateAnalyzed},
    {"timeAnalyzed", &Form8Content::TimeAnalyzed},
};

// ---- The rows of the forms' tables

constexpr Value<VoaRow> kVoaRow[] = {
    {"casNumber", &VoaRow::CasNumber},
    {"compound", &VoaRow::Compound},
    {"concentration", &VoaRow::Concentration, kNumber},
    {"qualifier", &VoaRow::Qualifier},
};

struct TicCell {
    std::string_view name;
    bool isNumber = false;
};
constexpr TicCell kTicCells[TicEntry::kCount] = {{"casNumber"},
                                                 {"compound"},
                                                 {"retentionTime", kNumber},
                                                 {"estimatedConcentration", kNumber},
                                                 {"qualifier"}};

constexpr Value<Form2Content::Compound> kMonitoringCompound[] = {
    {"number", &Form2Content::Compound::Number},
    {"compound", &Form2Content::Compound::Name},
    {"limits", &Form2Content::Compound::Limits},
};

constexpr Value<ListedSample> kForm4Sample[] = {
    {"sampleNo", &ListedSample::SampleNo},   {"labSampleId", &ListedSample::LabSampleId},
    {"labFileId", &ListedSample::LabFileId}, {"analyzed", &ListedSample::Analyzed},
    {"flag", &ListedSample::Flag},
};
constexpr Value<ListedSample> kForm5Sample[] = {
    {"sampleNo", &ListedSample::SampleNo},         {"labSampleId", &ListedSample::LabSampleId},
    {"labFileId", &ListedSample::LabFileId},       {"dateAnalyzed", &ListedSample::DateAnalyzed},
    {"timeAnalyzed", &ListedSample::TimeAnalyzed}, {"flag", &ListedSample::Flag},
};

constexpr Value<Form6Content::Level> kLevelColumns[] = {
    {"labFileId", &Form6Content::Level::LabFileId},
    {"amount", &Form6Content::Level::Amount, kNumber},
};

constexpr Value<Form7Content::Compound> kCheckedCompound[] = {
    {"compound", &Form7Content::Compound::Name},
    {"meanRf", &Form7Content::Compound::MeanRF, kNumber},
    {"rf", &Form7Content::Compound::RF, kNumber},
    {"minimumRf", &Form7Content::Compound::MinimumRF, kNumber},
    {"percentD", &Form7Content::Compound::PercentD, kNumber},
    {"maximumPercentD", &Form7Content::Compound::MaximumPercentD, kNumber},
};

constexpr Value<StandardISRecord> kStandard[] = {
    {"area", &StandardISRecord::Area, kNumber},
    {"areaUpperLimit", &StandardISRecord::AreaUpper, kNumber},
    {"areaLowerLimit", &StandardISRecord::AreaLower, kNumber},
    {"rt", &StandardISRecord::RT, kNumber},
    {"rtUpperLimit", &StandardISRecord::RTUpper, kNumber},
    {"rtLowerLimit", &StandardISRecord::RTLower, kNumber},
};

constexpr Value<Form8Content::Peak> kPeak[] = {
    {"Area", &Form8Content::Peak::Area, kNumber},
    {"AreaFlag", &Form8Content::Peak::AreaFlag},
    {"Rt", &Form8Content::Peak::RT, kNumber},
    {"RtFlag", &Form8Content::Peak::RTFlag},
};

// ---- From those tables

template <typename Row>
using Values = std::type_identity_t<std::span<const Value<Row>>>;

template <typename List>
void AddColumns(ValueTable& table, const List& values, const std::string& prefix = "") {
    for (const auto& value : values) {
        table.Columns.push_back({prefix + std::string(value.name), value.isNumber});
    }
}

template <typename List, typename Row>
void AddTexts(std::vector<std::string>& texts, const List& values, const Row& row) {
    for (const auto& value : values) {
        texts.push_back(row.*value.text);
    }
}

// The laboratory rows, what else of the header, and the form's own.
template <typename Content>
FormValues FieldsOf(const Content& content, std::span<const HeaderField> header,
                    Values<Content> own = {}) {
    FormValues values;
    std::vector<std::string>& texts = values.Fields.Rows.emplace_back();
    for (const auto& part : {std::span<const HeaderField>(kLabRows), header}) {
        for (const HeaderField field : part) {
            const HeaderEntry& entry = HeaderEntryOf(field);
            values.Fields.Columns.push_back({std::string(entry.ExportName), entry.IsNumber});
            texts.push_back(content.Header[field]);
        }
    }
    AddColumns(values.Fields, own);
    AddTexts(texts, own, content);
    return values;
}

template <typename Row>
ValueTable RowsOf(std::string name, std::span<const Row> rows, Values<Row> columns) {
    ValueTable table{std::move(name), {}, {}};
    AddColumns(table, columns);
    for (const Row& row : rows) {
        AddTexts(table.Rows.emplace_back(), columns, row);
    }
    return table;
}

// ---- The forms

FormValues Describe(const Form1VoaContent& content) {
    FormValues values = FieldsOf(content, kForm1Header, kSampleNo<Form1VoaContent>);
    values.Tables = {RowsOf("compounds", std::span(content.Rows), kVoaRow)};
    return values;
}

FormValues Describe(const Form1TicContent& content) {
    FormValues values = FieldsOf(content, kForm1Header, kSampleNo<Form1TicContent>);
    ValueTable compounds{"compounds", {}, {}};
    for (const TicCell& cell : kTicCells) {
        compounds.Columns.push_back({std::string(cell.name), cell.isNumber});
    }
    for (const TicEntry& entry : content.Entries) {
        std::ranges::copy(entry.cells, std::back_inserter(compounds.Rows.emplace_back()));
    }
    values.Tables = {std::move(compounds)};
    return values;
}

FormValues Describe(const Form2Content& content) {
    FormValues values = FieldsOf(content, kForm2Header);
    ValueTable samples{"samples", {{"sampleNo"}}, {}};
    std::size_t columns = content.Compounds.size();
    for (const Form2Content::Sample& sample : content.Samples) {
        columns = std::max(columns, sample.Recoveries.size());
    }
    for (std::size_t i = 0; i < columns; ++i) {
        const std::string name = LowerCase(CompoundNumber(i));
        samples.Columns.insert(samples.Columns.end(), {{name, kNumber}, {name + "Flag"}});
    }
    for (const Form2Content::Sample& sample : content.Samples) {
        std::vector<std::string>& row = samples.Rows.emplace_back(1, sample.SampleNo);
        for (const Form2Content::Recovery& recovery : sample.Recoveries) {
            row.insert(row.end(), {recovery.Percent, recovery.Flag});
        }
        row.resize(samples.Columns.size());
    }
    values.Tables = {RowsOf("compounds", std::span(content.Compounds), kMonitoringCompound),
                     std::move(samples)};
    return values;
}

FormValues Describe(const Form4Content& content) {
    FormValues values = FieldsOf(content, kForm4Header, kForm4Fields);
    ValueTable comments{"comments", {{"text"}}, {}};
    for (const std::string& line : content.Comments) {
        comments.Rows.push_back({line});
    }
    values.Tables = {RowsOf("samples", std::span(content.Samples), kForm4Sample),
                     std::move(comments)};
    return values;
}

FormValues Describe(const Form5Content& content) {
    FormValues values = FieldsOf(content, kForm5Header, kForm5Fields);
    ValueTable ions{
        "ions", {{"mass", kNumber}, {"criterion"}, {"abundance", kNumber}, {"flag"}}, {}};
    for (std::size_t i = 0; i < content.Abundances.size(); ++i) {
        const auto& [percent, flag] = content.Abundances[i];
        ions.Rows.push_back({std::string(kTuneIons[i].Mass),
                             std::string(kTuneIons[i].FormCriterion()), percent, flag});
    }
    values.Tables = {std::move(ions), RowsOf("samples", std::span(content.Samples), kForm5Sample)};
    return values;
}

FormValues Describe(const Form6Content& content) {
    FormValues values = FieldsOf(content, kForm6Header, kForm6Fields);
    const std::size_t levels = content.Levels.size();
    ValueTable compounds{"compounds", {{"compound"}}, {}};
    for (std::size_t k = 1; k <= levels; ++k) {
        compounds.Columns.push_back({"rf" + std::to_string(k), kNumber});
    }
    compounds.Columns.insert(compounds.Columns.end(),
                             {{"meanRf", kNumber}, {"percentRsd", kNumber}});
    for (const CalibrationRecord& compound : content.Compounds) {
        std::vector<std::string>& row = compounds.Rows.emplace_back(1, compound.Name);
        row.insert(row.end(), compound.RF.data(), compound.RF.data() + levels);
        row.insert(row.end(), {compound.MeanRF, compound.RSD});
    }
    values.Tables = {RowsOf("levels", std::span(content.Levels), kLevelColumns),
                     std::move(compounds)};
    return values;
}

FormValues Describe(const Form7Content& content) {
    FormValues values = FieldsOf(content, kForm7Header, kForm7Fields);
    values.Tables = {RowsOf("compounds", std::span(content.Compounds), kCheckedCompound)};
    return values;
}

FormValues Describe(const Form8Content& content) {
    FormValues values = FieldsOf(content, kForm8Header, kForm8Fields);
    ValueTable standard{"standard", {{"internalStandard"}}, {}};
    AddColumns(standard, kStandard);
    ValueTable samples{"samples", {{"sampleNo"}}, {}};
    for (std::size_t i = 0; i < content.Standard.size(); ++i) {
        standard.Rows.push_back({std::string(InternalStandardNames[i])});
        AddTexts(standard.Rows.back(), kStandard, content.Standard[i]);
        AddColumns(samples, kPeak, "is" + std::to_string(i + 1));
    }
    for (const Form8Content::Sample& sample : content.Samples) {
        std::vector<std::string>& row = samples.Rows.emplace_back(1, sample.SampleNo);
        for (const Form8Content::Peak& peak : sample.Peaks) {
            AddTexts(row, kPeak, peak);
        }
    }
    values.Tables = {std::move(standard), std::move(samples)};
    return values;
}

}  // namespace

FormValues ValuesOf(const AnyFormContent& content) {
    return std::visit([](const auto& form) { return Describe(form); }, content);
}

}  // namespace qfr
