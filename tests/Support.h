// Doubles and small helpers that the tests share.
#pragma once

#include <deque>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/Batch.h"
#include "platform/Messages.h"
#include "platform/Printer.h"

namespace qfr::test {

// Keeps a log of what was shown and asked. A question without a prepared answer fails the test, and
// so does an answer that nobody asked for.
class MessageLog : public Messages {
  public:
    ~MessageLog() override { EXPECT_TRUE(answers.empty()) << "an expected question never came"; }
    void Show(const Message& message) override { shown.push_back(message); }
    bool AskYesNo(const Message& question) override;
    // The texts, or the titles, shown since the last call.
    std::vector<std::string> TakeTexts() { return Take(&Message::text); }
    std::vector<std::string> TakeTitles() { return Take(&Message::title); }

    std::vector<Message> shown;
    std::deque<bool> answers;

  private:
    std::vector<std::string> Take(std::string Message::*part);
};

// A directory that is gone after the test.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& Path() const { return path_; }
    // Writes a file below the directory and returns its full name.
    std::string Write(std::string_view name, std::string_view content) const;

  private:
    std::filesystem::path path_;
};

// A valid quantitation report; a test changes what it is about.
struct ReportText {
    std::string header =
        "Acquisition Date: 5/12/2005 2:05 PM\nSample Size: 5.0\nClient Sample ID: C-17\n"
        "Sample ID: VBLK01\nLab File ID: ABC01.D; Instrument: GCMS2\n"
        "Calibration File: C:\\cal\\DAY1.CAL\nCompound Library: C:\\lib\\VOA.LIB\n"
        "Internal Standards: C:\\lib\\VOA.IST\nCRQL Limit: 10\n";
    int rows = 2;
    std::string afterRows = "\n";

    std::string Text() const;
};

// What the function makes of each value, with "|" between.
template <typename Value, typename Function>
std::string Joined(std::initializer_list<Value> values, Function function) {
    std::string results;
    for (const Value& value : values) {
        results += (&value == values.begin() ? "" : "|") + std::string(function(value));
    }
    return results;
}

// 50 MB without a line end.
std::string EndlessLine();

std::string ReadAll(const std::filesystem::path& file);
std::filesystem::path ExampleDir();
// A file of tests/data.
std::filesystem::path TestData(std::string_view name);

// The forms' typeface without its font file: ASCII, and "é" for the names that are not.
class TimesMetrics : public TextMetrics {
  public:
    int TextWidth(std::string_view utf8, int points) override;
    int TextHeight(int points) override;
};

}  // namespace qfr::test
