// Doubles and small helpers that the tests share.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Messages.h"
#include "platform/TextMetrics.h"

namespace qfr::test {

// Keeps a log of what was shown and asked. A question without a prepared answer fails the test, and
// so does an answer that nobody asked for.
class MessageLog : public Messages {
  public:
    ~MessageLog() override { EXPECT_TRUE(answers.empty()) << "an expected question never came"; }
    void Show(const Message& message) override { shown.push_back(message); }
    bool AskYesNo(const Message& question) override {
        shown.push_back(question);
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected question: " << question.text;
            return false;
        }
        bool answer = answers.front();
        answers.pop_front();
        return answer;
    }
    // The texts shown since the last call.
    std::vector<std::string> TakeTexts();

    std::vector<Message> shown;
    std::deque<bool> answers;
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

std::string ReadAll(const std::filesystem::path& file);
std::filesystem::path ExampleDir();

// A typeface whose every character is half as wide as it is high, so that layouts are easy to compute.
class SquareMetrics : public TextMetrics {
  public:
    int TextWidth(std::string_view utf8, int points) override;
    int TextHeight(int points) override;
};

}  // namespace qfr::test
