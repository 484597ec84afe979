// Printing on the system's printers: the toolkit's printing cannot give a job up, and takes a
// printer that is short of toner for a stopped one.
#include "platform/qt/PrinterQueue.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

// clang-format off
#include <windows.h>
#include <winspool.h>
// clang-format on

#include "platform/FileLookup.h"
#include "platform/PaintOrder.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr int kFine = 16;                   // units of a shape to a pixel at kResolution
constexpr double kPaperUnitsPerInch = 254;  // tenths of a millimetre

std::wstring WideOf(const std::string& text) {
    return PathOf(text).wstring();
}

struct CloseQueue {
    using pointer = HANDLE;
    void operator()(HANDLE queue) const { ::ClosePrinter(queue); }
};
using Queue = std::unique_ptr<void, CloseQueue>;

struct CloseContext {
    using pointer = HDC;
    void operator()(HDC context) const { ::DeleteDC(context); }
};
using DeviceContext = std::unique_ptr<HDC, CloseContext>;

Queue Open(std::wstring printer) {
    HANDLE queue = nullptr;
    return Queue(::OpenPrinterW(printer.data(), &queue, nullptr) != 0 ? queue : nullptr);
}

bool IsPaused(const Queue& queue) {
    constexpr DWORD kStatus = 6;
    PRINTER_INFO_6 info{};
    DWORD needed = 0;
    return ::GetPrinterW(queue.get(), kStatus, reinterpret_cast<LPBYTE>(&info), sizeof info,
                         &needed) != 0 &&
           (info.dwStatus & (PRINTER_STATUS_PAUSED | PRINTER_STATUS_PENDING_DELETION)) != 0;
}

// The system's number of the printer's paper of that size; absent where it has none. The printer's
// own variants, as those without a margin, have larger numbers than the paper itself.
std::optional<short> PaperNumber(const std::wstring& printer, const Paper& paper) {
    constexpr double kTolerance = 20;
    const int count = ::DeviceCapabilitiesW(printer.c_str(), nullptr, DC_PAPERS, nullptr, nullptr);
    std::vector<WORD> numbers(static_cast<std::size_t>(std::max(count, 0)));
    std::vector<POINT> sizes(numbers.size());
    if (numbers.empty() ||
        ::DeviceCapabilitiesW(printer.c_str(), nullptr, DC_PAPERSIZE, nullptr, nullptr) != count) {
        return std::nullopt;
    }
    ::DeviceCapabilitiesW(printer.c_str(), nullptr, DC_PAPERS,
                          reinterpret_cast<LPWSTR>(numbers.data()), nullptr);
    ::DeviceCapabilitiesW(printer.c_str(), nullptr, DC_PAPERSIZE,
                          reinterpret_cast<LPWSTR>(sizes.data()), nullptr);
    const auto isNear = [](LONG size, double inches) {
        return std::abs(static_cast<double>(size) - inches * kPaperUnitsPerInch) < kTolerance;
    };
    std::optional<short> least;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto number = static_cast<short>(numbers[i]);
        if (isNear(sizes[i].x, paper.width) && isNear(sizes[i].y, paper.height) &&
            (!least || number < *least)) {
            least = number;
        }
    }
    return least;
}

// What the printer does with a job: the user's own settings, but for what the forms decide.
class Settings {
  public:
    Settings(const Queue& queue, std::wstring printer)
        : queue_(queue), printer_(std::move(printer)) {
        const LONG size =
            ::DocumentPropertiesW(nullptr, queue_.get(), printer_.data(), nullptr, nullptr, 0);
        bytes_.resize(static_cast<std::size_t>(std::max(size, LONG{0})));
        if (!bytes_.empty() && ::DocumentPropertiesW(nullptr, queue_.get(), printer_.data(), Get(),
                                                     nullptr, DM_OUT_BUFFER) != IDOK) {
            bytes_.clear();
        }
    }
    // Null when the printer does not tell them.
    DEVMODEW* Get() {
        return bytes_.empty() ? nullptr : reinterpret_cast<DEVMODEW*>(bytes_.data());
    }

    // False: the printer does not take them.
    bool Choose(const Paper& paper, PageOrientation orientation) {
        DEVMODEW& mode = *Get();
        const auto set = [&mode](DWORD field, auto& value, auto wanted) {
            mode.dmFields |= field;
            value = static_cast<std::remove_reference_t<decltype(value)>>(wanted);
        };
        set(DM_ORIENTATION, mode.dmOrientation,
            orientation == PageOrientation::kLandscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT);
        set(DM_SCALE, mode.dmScale, 100);
        set(DM_COPIES, mode.dmCopies, 1);
        mode.dmFields &= ~DWORD{DM_FORMNAME | DM_PAPERWIDTH | DM_PAPERLENGTH};
        const std::optional<short> number = PaperNumber(printer_, paper);
        if (number) {
            set(DM_PAPERSIZE, mode.dmPaperSize, *number);
        } else {
            set(DM_PAPERSIZE, mode.dmPaperSize, DMPAPER_USER);
            set(DM_PAPERWIDTH, mode.dmPaperWidth, std::lround(paper.width * kPaperUnitsPerInch));
            set(DM_PAPERLENGTH, mode.dmPaperLength, std::lround(paper.height * kPaperUnitsPerInch));
        }
        // The driver makes them agree with each other.
        return ::DocumentPropertiesW(nullptr, queue_.get(), printer_.data(), &mode, &mode,
                                     DM_IN_BUFFER | DM_OUT_BUFFER) == IDOK &&
               (!number || mode.dmPaperSize == *number);
    }

  private:
    const Queue& queue_;
    std::wstring printer_;
    std::vector<std::byte> bytes_;
};

// One page on its way to the printer, in pixels at kResolution from the paper's corner, wherever
// the printer can begin to print.
class Sheet {
  public:
    Sheet(HDC context, Typeface& typeface) : context_(context), typeface_(typeface) {
        ::SetMapMode(context_, MM_ANISOTROPIC);
        ::SetWindowExtEx(context_, kResolution * kFine, kResolution * kFine, nullptr);
        ::SetViewportExtEx(context_, ::GetDeviceCaps(context_, LOGPIXELSX),
                           ::GetDeviceCaps(context_, LOGPIXELSY), nullptr);
        ::SetViewportOrgEx(context_, -::GetDeviceCaps(context_, PHYSICALOFFSETX),
                           -::GetDeviceCaps(context_, PHYSICALOFFSETY), nullptr);
        ::SetPolyFillMode(context_, WINDING);
        ::SelectObject(context_, ::GetStockObject(BLACK_BRUSH));
    }

    // False: something of the page is missing.
    bool Paint(const JobPage& page) {
        const std::vector<PaintedItem> painted = PaintOrderOf(page);
        for (std::size_t i = 0; i < painted.size(); ++i) {
            if (const auto* const rule = std::get_if<RuleItem>(&page.items[i])) {
                Draw(*rule);
            } else if (!painted[i].hidden) {
                const auto& text = std::get<TextItem>(page.items[i]);
                if (painted[i].coversEarlier) {
                    const RECT cell{text.x * kFine, text.y * kFine, (text.x + text.width) * kFine,
                                    (text.y + text.height) * kFine};
                    Check(::FillRect(context_, &cell,
                                     static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH))));
                }
                Draw(text);
            }
        }
        return isWhole_;
    }

  private:
    void Check(int result) { isWhole_ = isWhole_ && result != 0; }

    void Draw(const RuleItem& rule) {
        const LOGBRUSH black{BS_SOLID, RGB(0, 0, 0), 0};
        HGDIOBJ const pen =
            ::ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND,
                           static_cast<DWORD>(rule.penWidth * kFine), &black, 0, nullptr);
        if (pen == nullptr) {
            isWhole_ = false;
            return;
        }
        HGDIOBJ const before = ::SelectObject(context_, pen);
        Check(::MoveToEx(context_, rule.x1 * kFine, rule.y1 * kFine, nullptr));
        Check(::LineTo(context_, rule.x2 * kFine, rule.y2 * kFine));
        ::DeleteObject(::SelectObject(context_, before));
    }

    // As shapes: the printer's fonts have widths of their own.
    void Draw(const TextItem& text) {
        const double perUnit = typeface_.PixelsPerUnit(text.size) * kFine;
        const double perEm = perUnit * typeface_.UnitsPerEm();
        const double baseline = (text.y + typeface_.Ascent(text.size)) * kFine;
        double left = text.x * kFine;
        Check(::BeginPath(context_));
        for (std::string_view rest = text.text; !rest.empty();) {
            const Typeface::Glyph& glyph = typeface_.Of(TakeCharacter(rest));
            for (const auto& [step, points] : typeface_.OutlineOf(glyph).parts) {
                POINT at[3];
                for (std::size_t i = 0; i < std::size(at); ++i) {
                    at[i] = {std::lround(left + points[2 * i] * perEm),
                             std::lround(baseline - points[2 * i + 1] * perEm)};
                }
                switch (step) {
                    case Outline::Step::kMove:
                        Check(::MoveToEx(context_, at[0].x, at[0].y, nullptr));
                        break;
                    case Outline::Step::kLine:
                        Check(::LineTo(context_, at[0].x, at[0].y));
                        break;
                    case Outline::Step::kCurve:
                        Check(::PolyBezierTo(context_, at, std::size(at)));
                        break;
                    case Outline::Step::kClose:
                        Check(::CloseFigure(context_));
                        break;
                }
            }
            left += glyph.advance * perUnit;
        }
        Check(::EndPath(context_));
        ::FillPath(context_);  // Wine's printers say no to what they draw
    }

    HDC context_;
    Typeface& typeface_;
    bool isWhole_ = true;
};

// Why the printer does not go on.
std::string LastReason() {
    const DWORD error = ::GetLastError();
    if (error == ERROR_CANCELLED || error == ERROR_PRINT_CANCELLED) {
        return "It was cancelled.";
    }
    std::string reason = "The printer does not take the job.";
    if (error != ERROR_SUCCESS) {
        reason += " " + Trim(std::system_category().message(static_cast<int>(error)));
    }
    return reason.ends_with('.') ? reason : reason + ".";
}

bool PrintPages(const PrintJob& job, HDC context, Settings& settings, Typeface& typeface) {
    PageOrientation orientation = job.pages.front().orientation;
    for (const JobPage& page : job.pages) {
        if (page.orientation != orientation) {
            orientation = page.orientation;
            if (!settings.Choose(job.paper, orientation) ||
                ::ResetDCW(context, settings.Get()) == nullptr) {
                return false;
            }
        }
        if (::StartPage(context) <= 0 || !Sheet(context, typeface).Paint(page) ||
            ::EndPage(context) <= 0) {
            return false;
        }
    }
    return ::EndDoc(context) > 0;
}

}  // namespace

std::vector<std::string> InstalledPrinters() {
    constexpr DWORD kNames = 4;
    constexpr DWORD kWhich = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
    DWORD size = 0;
    DWORD count = 0;
    ::EnumPrintersW(kWhich, nullptr, kNames, nullptr, 0, &size, &count);
    std::vector<PRINTER_INFO_4W> found(size / sizeof(PRINTER_INFO_4W) + 1);
    size = static_cast<DWORD>(found.size() * sizeof(PRINTER_INFO_4W));
    if (::EnumPrintersW(kWhich, nullptr, kNames, reinterpret_cast<LPBYTE>(found.data()), size,
                        &size, &count) == 0) {
        return {};
    }
    std::vector<std::string> names;
    for (DWORD i = 0; i < count; ++i) {
        names.push_back(TextOf(found[i].pPrinterName));
    }
    std::ranges::sort(names);
    DWORD length = 0;
    ::GetDefaultPrinterW(nullptr, &length);
    std::wstring first(length, L'\0');
    if (length > 0 && ::GetDefaultPrinterW(first.data(), &length) != 0) {
        first.resize(first.find(L'\0'));
        std::ranges::stable_partition(
            names, [name = TextOf(first)](const std::string& other) { return other == name; });
    }
    return names;
}

std::optional<std::string> PrintOnQueue(const PrintJob& job, const std::string& printer,
                                        Typeface& typeface) {
    if (job.pages.empty()) {
        return "There is no page to print.";
    }
    const std::wstring name = WideOf(printer);
    const Queue queue = Open(name);
    if (!queue) {
        return ::GetLastError() == ERROR_INVALID_PRINTER_NAME
                   ? "The printer is not installed any more."
                   : LastReason();
    }
    // The system would keep the job and print it at some later time.
    if (IsPaused(queue)) {
        return "The printer is stopped.";
    }
    Settings settings(queue, name);
    if (settings.Get() == nullptr) {
        return "The printer does not answer.";
    }
    if (!settings.Choose(job.paper, job.pages.front().orientation)) {
        return "The printer does not take this paper.";
    }
    const DeviceContext context(::CreateDCW(nullptr, name.c_str(), nullptr, settings.Get()));
    if (!context) {
        return LastReason();
    }
    const std::wstring title = WideOf(Visible(job.title));
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = title.c_str();
    ::SetLastError(ERROR_SUCCESS);
    if (::StartDocW(context.get(), &document) <= 0) {
        return LastReason();
    }
    if (!PrintPages(job, context.get(), settings, typeface)) {
        const std::string reason = LastReason();
        ::AbortDoc(context.get());
        return reason;
    }
    return std::nullopt;
}

std::string PrintingLibrary() {
    return {};
}

}  // namespace qfr
