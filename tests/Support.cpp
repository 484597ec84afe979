#include "tests/Support.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "platform/FileLookup.h"
#include "platform/PrintJob.h"

namespace qfr::test {

namespace fs = std::filesystem;

namespace {

// Of Times New Roman and Liberation Serif, in units of which an em has 2048; advance widths from
// " " to "~".
constexpr int kUnitsPerEm = 2048;
constexpr int kAscent = 1825;
constexpr int kDescent = 443;
constexpr int kAdvances[] = {
    512,  682,  836,  1024, 1024, 1706, 1593, 369,  682,  682,  1024, 1155, 512,  682,  512,  569,
    1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024, 569,  569,  1155, 1155, 1155, 909,
    1886, 1479, 1366, 1366, 1479, 1251, 1139, 1479, 1479, 682,  797,  1479, 1251, 1821, 1479, 1479,
    1139, 1479, 1366, 1139, 1251, 1479, 1479, 1933, 1479, 1479, 1251, 682,  569,  682,  961,  1024,
    682,  909,  1024, 909,  1024, 909,  682,  1024, 1024, 569,  569,  1024, 569,  1593, 1024, 1024,
    1024, 1024, 682,  797,  569,  1024, 1024, 1479, 1024, 1024, 909,  983,  410,  983,  1108};

double PixelsPerUnit(int points) {
    return points * kResolution / 72.0 / kUnitsPerEm;
}

}  // namespace

bool MessageLog::AskYesNo(const Message& question) {
    shown.push_back(question);
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected question: " << question.text;
        return false;
    }
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}

std::vector<std::string> MessageLog::Take(std::string Message::*part) {
    std::vector<std::string> parts;
    for (const Message& message : std::exchange(shown, {})) {
        parts.push_back(message.*part);
    }
    return parts;
}

TempDir::TempDir() {
    do {
        path_ = fs::temp_directory_path() / ("qfr-test-" + std::to_string(std::random_device()()));
    } while (!fs::create_directory(path_));
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

std::string ReportText::Text() const {
    std::string text = "QUANTITATION REPORT  Tallyworks Version 4.2\n" + header +
                       "Compound#;Name;Conc;;;Q;Area;CAS\n";
    for (int row = 1; row <= rows; ++row) {
        text += std::to_string(row) + ";Compound;5.04;;;;1200;71-43-2\n";
    }
    return text + afterRows;
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

fs::path TestData(std::string_view name) {
    return fs::path(QFR_SOURCE_DIR) / "tests/data" / name;
}

int TimesMetrics::TextWidth(std::string_view utf8, int points) {
    constexpr std::string_view kAccented = "\u00e9";
    int units = 0;
    while (!utf8.empty()) {
        const bool accented = utf8.starts_with(kAccented);
        const auto index = static_cast<std::size_t>(accented ? 'e' : utf8.front()) - ' ';
        if (index >= std::size(kAdvances)) {
            ADD_FAILURE() << "the typeface lacks a character: " << utf8;
            break;
        }
        units += kAdvances[index];
        utf8.remove_prefix(accented ? kAccented.size() : 1);
    }
    return static_cast<int>(std::lround(units * PixelsPerUnit(points)));
}

int TimesMetrics::TextHeight(int points) {
    return static_cast<int>(std::lround(kAscent * PixelsPerUnit(points)) +
                            std::lround(kDescent * PixelsPerUnit(points)));
}

}  // namespace qfr::test
