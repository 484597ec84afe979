#include "tests/Support.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "platform/FileLookup.h"
#include "platform/PrintJob.h"

namespace qfr::test {

namespace fs = std::filesystem;

std::vector<std::string> MessageLog::TakeTexts() {
    std::vector<std::string> texts;
    for (const Message& message : std::exchange(shown, {})) {
        texts.push_back(message.text);
    }
    return texts;
}

TempDir::TempDir() {
    std::string name = (fs::temp_directory_path() / "qfr-test-XXXXXX").string();
    path_ = ::mkdtemp(name.data());
    fs::permissions(path_, fs::perms(0755));
}

TempDir::~TempDir() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TempDir::Write(std::string_view name, std::string_view content) const {
    fs::path file = path_ / PathOf(name);
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return TextOf(file);
}

OrdinaryUser::OrdinaryUser() : wasAdministrator_(::geteuid() == 0) {
    constexpr uid_t kNobody = 65534;
    if (wasAdministrator_) {
        EXPECT_EQ(::seteuid(kNobody), 0);
    }
}

OrdinaryUser::~OrdinaryUser() {
    if (wasAdministrator_) {
        EXPECT_EQ(::seteuid(0), 0);
    }
}

std::string ReportText::Text() const {
    std::string text = title + "\n" + header + "Compound#;Name;Conc;;;Q;Area;CAS\n";
    for (int row = 1; row <= rows; ++row) {
        text += std::to_string(row) + ";Compound;5.04;;;;1200;71-43-2\n";
    }
    return text + afterRows;
}

FileSet NamedFiles(std::string library, std::string internalStandard, std::string calibration) {
    FileSet files;
    files.LibFile = std::move(library);
    files.SurrFile = std::move(internalStandard);
    files.CalFile = std::move(calibration);
    return files;
}

std::string WithCrLf(std::string_view text) {
    std::string converted;
    for (char c : text) {
        converted += c == '\n' ? "\r\n" : std::string(1, c);
    }
    return converted;
}

std::string EndlessLine() {
    std::string line;
    line.resize(50'000'000, 'x');
    return line;
}

std::string ReadAll(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

fs::path ExampleDir() {
    return fs::path(QFR_SOURCE_DIR) / "example";
}

int SquareMetrics::TextWidth(std::string_view utf8, int points) {
    int characters = 0;
    for (char c : utf8) {
        characters += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
    }
    return characters * points * kResolution / 72 / 2;
}

int SquareMetrics::TextHeight(int points) {
    return points * kResolution / 72;
}

}  // namespace qfr::test
