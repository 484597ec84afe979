#include "platform/Printer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qfr {

int TFont::Height() const {
    return -static_cast<int>(std::lround(Size * kResolution / kPointsPerInch));
}

namespace {

TPoint Bounded(int x, int y) {
    return {std::clamp(x, -kFarthest, kFarthest), std::clamp(y, -kFarthest, kFarthest)};
}

}  // namespace

void TCanvas::MoveTo(int x, int y) {
    penPos_ = Bounded(x, y);
}

void TCanvas::LineTo(int x, int y) {
    const TPoint end = Bounded(x, y);
    if (page_ != nullptr) {
        page_->items.emplace_back(RuleItem{penPos_.x, penPos_.y, end.x, end.y, Pen.Width});
    }
    penPos_ = end;
}

void TCanvas::TextOut(int x, int y, std::string_view text) {
    const int width = std::min(TextWidth(text), kFarthest);
    const TPoint start = Bounded(x, y);
    if (page_ != nullptr && !text.empty()) {
        page_->items.emplace_back(
            TextItem{start.x, start.y, width, TextHeight(text), Font.Size, std::string(text)});
    }
    penPos_ = Bounded(start.x + width, start.y);
}

int TCanvas::TextWidth(std::string_view text) const {
    return text.empty() ? 0 : metrics_.TextWidth(text, Font.Size);
}

int TCanvas::TextHeight(std::string_view /*text*/) const {
    return metrics_.TextHeight(Font.Size);
}

int TPrinter::PageWidth() const {
    const bool portrait = Orientation == PageOrientation::kPortrait;
    return static_cast<int>(
        std::lround((portrait ? PaperSize.width : PaperSize.height) * kResolution));
}

int TPrinter::PageHeight() const {
    const bool portrait = Orientation == PageOrientation::kPortrait;
    return static_cast<int>(
        std::lround((portrait ? PaperSize.height : PaperSize.width) * kResolution));
}

void TPrinter::BeginDoc() {
    printing_ = true;
    job_ = PrintJob{Title, PaperSize, {}};
    givenUp_ = !sink_.BeginJob(PrinterIndex, Title);
    NewPage();
}

void TPrinter::EndDoc() {
    if (!std::exchange(printing_, false)) {
        return;
    }
    canvas_.page_ = nullptr;
    PrintJob job = std::exchange(job_, {});
    if (!givenUp_) {
        sink_.TakeJob(PrinterIndex, std::move(job));
    }
}

void TPrinter::NewPage() {
    if (!printing_) {
        return;
    }
    job_.pages.push_back({Orientation, PageWidth(), PageHeight(), {}});
    canvas_.page_ = &job_.pages.back();
    canvas_.penPos_ = {};
}

}  // namespace qfr
