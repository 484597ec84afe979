// The printer of the run, as the page of the forms has it.
#pragma once

#include <functional>
#include <utility>

#include "forms/Page.h"
#include "platform/qt/PrinterChoice.h"

namespace qfr {

class RunPrinter : public PrinterChoice {
  public:
    // The page outlives it. `list` fills the printer's list.
    RunPrinter(Page& page, std::function<void(TPrinter&)> list)
        : page_(page), list_(std::move(list)) {
        page_.OnPrinterChoice = [this] { emit Changed(); };
    }
    ~RunPrinter() override { page_.OnPrinterChoice = nullptr; }
    RunPrinter(const RunPrinter&) = delete;
    RunPrinter& operator=(const RunPrinter&) = delete;

    const std::vector<std::string>& Known() const override { return page_.Printer().Printers; }
    const std::vector<std::string>& All() override {
        list_(page_.Printer());
        return Known();
    }
    std::optional<int> Chosen() const override {
        const auto chosen = page_.ChosenPrinter();
        return chosen && *chosen < static_cast<int>(Known().size()) ? chosen : std::nullopt;
    }
    void Choose(int index) override { page_.ChoosePrinter(index); }

  private:
    Page& page_;
    std::function<void(TPrinter&)> list_;
};

}  // namespace qfr
