// The printer of the run, as the page of the forms has it.
#pragma once

#include <cstddef>
#include <functional>
#include <utility>

#include "forms/Page.h"
#include "platform/qt/PrinterChoice.h"
#include "platform/qt/Remembered.h"

namespace qfr {

class RunPrinter : public PrinterChoice {
  public:
    // Page and memory outlive it. `list` fills the printer's list.
    RunPrinter(Page& page, Remembered& memory, std::function<void(TPrinter&)> list)
        : page_(page), memory_(memory), list_(std::move(list)) {
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
    void Choose(int index) override {
        if (const auto at = static_cast<std::size_t>(index); at < Known().size()) {
            memory_.Keep(kPrinterName, QString::fromStdString(Known()[at]));
        }
        page_.ChoosePrinter(index);
    }

  private:
    Page& page_;
    Remembered& memory_;
    std::function<void(TPrinter&)> list_;
};

}  // namespace qfr
