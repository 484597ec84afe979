// The Form 1 header dialog's values that a laboratory keeps in files, to read them for other
// samples.
#include <filesystem>

#include "data/LabFiles.h"
#include "dialogs/Form1Header.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"

namespace qfr {

namespace {

const char* const kDefaultsFile = "DefaultInfo.txt";

std::vector<std::string> TextsOf(const HeaderControls& controls,
                                 std::span<const HeaderField> fields) {
    std::vector<std::string> texts;
    for (const HeaderField field : fields) {
        texts.push_back(controls.Text(field));
    }
    return texts;
}

}  // namespace

void TForm1Header::Button1Click() {
    if (const std::optional<std::string> file = services_.ChooseLaboratoryFile()) {
        if (WriteValueLines(PathOf(*file), TextsOf(controls_, kLaboratoryFields))) {
            host_.Show(CouldNotBeWritten(*file));
        }
    }
}

void TForm1Header::Button2Click() {
    if (const auto chosen = services_.ChooseFiles(FileKind::kText, false)) {
        const std::string& file = chosen->files.front();
        if (!TakeTexts(kLaboratoryFields, ReadLaboratoryFile(PathOf(file)), file)) {
            host_.Show(CouldNotReadValues());
        }
    }
}

void TForm1Header::Button3Click() {
    const std::filesystem::path file = services_.Settings().ForWriting(kDefaultsFile);
    if (AgreesToReplace(file, host_) &&
        WriteValueLines(file, TextsOf(controls_, kDefaultsFields))) {
        host_.Show(CouldNotBeWritten(kDefaultsFile));
    }
}

void TForm1Header::Button4Click() {
    const auto texts = ReadDefaultsFile(services_.Settings().ForReading(kDefaultsFile));
    if (!TakeTexts(kDefaultsFields, texts, kDefaultsFile) ||
        texts->size() < kDefaultsFields.size()) {
        host_.Show(CouldNotReadValues());
    }
}

bool TForm1Header::TakeTexts(std::span<const HeaderField> fields,
                             std::optional<std::vector<std::string>> texts,
                             const std::string& fileName) {
    if (!texts) {
        return false;
    }
    for (const Message& message : MakeBatchTexts(*texts, fileName)) {
        host_.Show(message);
    }
    for (std::size_t i = 0; i < fields.size() && i < texts->size(); ++i) {
        controls_.SetText(fields[i], (*texts)[i]);
    }
    return true;
}

}  // namespace qfr
