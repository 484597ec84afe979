// The laboratory that every fuzzed reader stands in: the example batch in a directory of its own,
// in which the input takes the place of one file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "app/BatchFile.h"
#include "data/LoadFiles.h"
#include "forms/FormHost.h"
#include "platform/Messages.h"

namespace qfr::fuzz {

// Messages that nobody reads; every question is answered with No.
class Silence : public Messages {
  public:
    void Show(const Message&) override {}
    bool AskYesNo(const Message&) override { return false; }
};

// A batch without entry dialogs.
class NoDialogs : public BatchOwner {
  public:
    void ResetEntryDialogs() override {}
};

using FormDriver = void (*)(FormHost& host);

class Laboratory {
  public:
    // `fileName`: the one that the input replaces, lower case.
    explicit Laboratory(std::string_view fileName);
    ~Laboratory();
    Laboratory(const Laboratory&) = delete;
    Laboratory& operator=(const Laboratory&) = delete;

    // Takes the next input.
    void Put(const std::uint8_t* data, std::size_t size) const;
    std::filesystem::path Directory() const { return directory_; }
    std::filesystem::path File() const { return directory_ / fileName_; }
    // Full path, as the batch knows it.
    std::string Name() const;

    // The example as it was restored.
    const SavedBatch& Example() const { return example_; }
    // Prints forms of the batch with the rules of the entry dialogs.
    static void Print(const SavedBatch& batch, const std::vector<FormDriver>& forms);
    void Print(const std::vector<FormDriver>& forms) const { Print(example_, forms); }
    // Reviews the batch, which prints all its forms.
    static void Review(const SavedBatch& batch);

  private:
    std::filesystem::path directory_;
    std::filesystem::path fileName_;
    SavedBatch example_;
};

// All forms, in the order in which qfrbatch prints them.
std::vector<FormDriver> AllForms();
// Form I and its TICs of every sample.
void PrintDataSheets(FormHost& host);

}  // namespace qfr::fuzz
