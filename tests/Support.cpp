#include "tests/Support.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "platform/FileLookup.h"
#include "platform/PrintJob.h"

namespace qfr::test {

namespace fs = std::filesystem;

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

int SquareMetrics::TextWidth(std::string_view utf8, int points) {
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    const auto bytes = std::count_if(utf8.begin(), utf8.end(), continues);
    return (static_cast<int>(utf8.size()) - static_cast<int>(bytes)) * points * kResolution / 72 /
           2;
}

int SquareMetrics::TextHeight(int points) {
    return points * kResolution / 72;
}

}  // namespace qfr::test
