// Recorded jobs: any items, texts of any bytes, papers and orders; the document is read again by
// the library that has written it, each page's operators too.
#include "platform/pdf/PdfFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/pdf/Qpdf.h"

namespace {

// Takes values off the front of the input; what is missing is 0.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}
    bool AtEnd() const { return rest_.empty(); }
    int Byte() { return static_cast<unsigned char>(Text(1).front()); }
    int Number() {
        const unsigned high = static_cast<unsigned>(Byte());
        return static_cast<std::int16_t>(high << 8U | static_cast<unsigned>(Byte()));
    }
    std::string Text(std::size_t size) {
        std::string text(rest_.substr(0, size));
        rest_.remove_prefix(text.size());
        text.resize(std::max(text.size(), std::size_t{1}));
        return text;
    }

  private:
    std::string_view rest_;
};

qfr::PageItem TakeItem(Input& input, qfr::Typeface& typeface, int kind) {
    // Coordinates far outside the page too, within kFarthest.
    const int scale = kind % 3 == 0 ? 30 : 1;
    const int x = input.Number() * scale;
    const int y = input.Number() * scale;
    if (kind % 2 == 0) {
        return qfr::RuleItem{x, y, input.Number() * scale, input.Number() * scale, input.Byte()};
    }
    const int size = input.Byte();
    const std::string text = input.Text(static_cast<std::size_t>(input.Byte()));
    return qfr::TextItem{x,    y,   typeface.TextWidth(text, size), typeface.TextHeight(size),
                         size, text};
}

struct ReadAll : QPDFObjectHandle::ParserCallbacks {
    void handleObject(QPDFObjectHandle, std::size_t, std::size_t) override {}
    void handleEOF() override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::unique_ptr<qfr::Typeface> typeface = qfr::Typeface::Load();
    Input input(data, size);
    const bool onPaper = input.Byte() % 2 == 1;
    qfr::PdfFile pdf(*typeface,
                     onPaper ? qfr::Landscape::kTurnedOntoPaper : qfr::Landscape::kUpright);
    std::size_t pages = 0;
    while (!input.AtEnd()) {
        qfr::PrintJob job{input.Text(8), qfr::kLetterPaper, {}};
        job.form = input.Text(6);
        job.sample = input.Text(4);
        for (int page = input.Byte() % 4; page > 0; --page) {
            qfr::JobPage next{input.Byte() % 2 == 0 ? qfr::PageOrientation::kPortrait
                                                    : qfr::PageOrientation::kLandscape,
                              input.Number() % 6600,
                              input.Number() % 6600,
                              {}};
            for (int kind = input.Byte(); kind != 0 && !input.AtEnd(); kind = input.Byte()) {
                next.items.push_back(TakeItem(input, *typeface, kind));
            }
            job.pages.push_back(std::move(next));
        }
        pages += job.pages.size();
        pdf.Add(job);
    }
    std::string reason;
    const std::string content = pdf.Content("fuzz", reason);
    if (pages == 0) {
        return 0;
    }
    QPDF document;
    document.processMemoryFile("fuzz", content.data(), content.size());
    std::size_t read = 0;
    for (QPDFPageObjectHelper page : QPDFPageDocumentHelper(document).getAllPages()) {
        ReadAll callbacks;
        page.parseContents(&callbacks);
        ++read;
    }
    if (read != pages || !document.getWarnings().empty()) {
        std::abort();
    }
    typeface->TakeBoxes();
    return 0;
}
