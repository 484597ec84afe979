#include "platform/pdf/PdfFile.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <hb.h>
#include <new>
#include <system_error>
#include <utility>
#include <vector>
#include <zlib.h>

#include <qpdf/Buffer.hh>
#include <qpdf/Pipeline.hh>
#include <qpdf/Pl_String.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFWriter.hh>

#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "platform/pdf/ArchiveData.h"
#include "platform/pdf/DocumentFonts.h"
#include "platform/pdf/PdfNumbers.h"

namespace qfr {

namespace {

using Object = QPDFObjectHandle;

Object Points(int pixels) {
    std::string text;
    AppendNumber(text, pixels * 72.0 / kResolution);
    return Object::newReal(text);
}

// Compresses streams of a document one after another; what that takes is by far larger than a page,
// and used again.
class Compressor {
  public:
    Compressor() {
        if (deflateInit(&state_, Z_DEFAULT_COMPRESSION) != Z_OK) {
            throw std::bad_alloc();
        }
    }
    ~Compressor() { deflateEnd(&state_); }
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;

    std::shared_ptr<Buffer> Compress(std::string content) {
        deflateReset(&state_);
        space_.resize(deflateBound(&state_, content.size()));
        state_.next_in = reinterpret_cast<Bytef*>(content.data());
        state_.avail_in = static_cast<uInt>(content.size());
        state_.next_out = space_.data();
        state_.avail_out = static_cast<uInt>(space_.size());
        // There is space for all of it.
        deflate(&state_, Z_FINISH);
        auto compressed = std::make_shared<Buffer>(state_.total_out);
        std::copy_n(space_.begin(), state_.total_out, compressed->getBuffer());
        return compressed;
    }

  private:
    z_stream state_{};
    std::vector<Bytef> space_;
};

// Passes a document on to a file as it is written.
class Pieces : public Pipeline {
  public:
    explicit Pieces(const PutPiece& put) : Pipeline("file", nullptr), put_(put) {}

    void write(const unsigned char* data, std::size_t size) override {
        waiting_.append(reinterpret_cast<const char*>(data), size);
        constexpr std::size_t kAtOnce = 1 << 16;
        if (waiting_.size() >= kAtOnce) {
            finish();
        }
    }
    void finish() override {
        error_ = error_ ? error_ : put_(waiting_);
        waiting_.clear();
    }
    std::error_code Error() const { return error_; }

  private:
    const PutPiece& put_;
    std::string waiting_;
    std::error_code error_;
};

// An entry of the outline, and those below it.
struct Entry {
    std::string title;
    Object page;
    Object top;  // of the page, points
    std::vector<Entry> below;
};

// Links the entries to each other and to what they stand below.
void Link(QPDF& document, Object above, const std::vector<Entry>& entries) {
    Object last = Object::newNull();
    for (const Entry& entry : entries) {
        // The page's top edge, at the size at which the reader reads.
        const Object place = Object::newArray(
            std::vector<Object>{entry.page, Object::newName("/XYZ"), Object::newInteger(0),
                                entry.top, Object::newNull()});
        Object item = document.makeIndirectObject(
            Object::newDictionary({{"/Title", Object::newUnicodeString(entry.title)},
                                   {"/Parent", above},
                                   {"/Dest", place}}));
        if (last.isNull()) {
            above.replaceKey("/First", item);
        } else {
            item.replaceKey("/Prev", last);
            last.replaceKey("/Next", item);
        }
        last = item;
        if (!entry.below.empty()) {
            Link(document, item, entry.below);
            // Folded, so that all forms are in sight however many samples there are.
            item.replaceKey("/Count", Object::newInteger(-std::ssize(entry.below)));
        }
    }
    above.replaceKey("/Last", last);
}

}  // namespace

struct PdfFile::Document {
    Document(Typeface& forms, Landscape lying) : typeface(forms), landscape(lying), fonts(forms) {
        pdf.emptyPDF();
        pageTree = pdf.getRoot().getKey("/Pages");
    }

    Object BoxOf(const JobPage& page) const {
        const bool turned = landscape == Landscape::kTurnedOntoPaper &&
                            page.orientation == PageOrientation::kLandscape;
        const Object zero = Object::newInteger(0);
        return Object::newArray(std::vector<Object>{zero, zero,
                                                    Points(turned ? page.height : page.width),
                                                    Points(turned ? page.width : page.height)});
    }

    // The pages of a job, as a branch of the page tree. A large document consists of little else
    // than pages; what they have in common is kept once.
    Object AddPages(const std::vector<JobPage>& pages) {
        const JobPage& first = pages.front();
        Object kids = Object::newArray();
        Object node = pdf.makeIndirectObject(
            Object::newDictionary({{"/Type", Object::newName("/Pages")},
                                   {"/Parent", pageTree},
                                   {"/MediaBox", BoxOf(first)},
                                   {"/Count", Object::newInteger(std::ssize(pages))},
                                   {"/Kids", kids}}));
        for (const JobPage& page : pages) {
            Object content = pdf.newStream();
            content.replaceStreamData(
                compressor.Compress(PageContent(page, landscape, typeface, fonts)), filter, none);
            Object entry = pdf.makeIndirectObject(Object::newDictionary(
                {{"/Type", pageType}, {"/Parent", node}, {"/Contents", content}}));
            if (page.width != first.width || page.height != first.height) {
                entry.replaceKey("/MediaBox", BoxOf(page));
            }
            kids.appendItem(entry);
        }
        jobNodes.appendItem(node);
        return kids;
    }

    // Where a reader of the outline is led to: the first page that shows something. A form may open
    // with an empty page, which is no sight.
    void List(const PrintJob& job, Object pages) {
        const auto shown =
            std::ranges::find_if(job.pages, [](const JobPage& p) { return !p.items.empty(); });
        if (shown == job.pages.end()) {
            return;
        }
        const Object page = pages.getArrayItem(static_cast<int>(shown - job.pages.begin()));
        const Object top = Points(shown->height);
        const std::string form = Visible(job.form.empty() ? job.title : job.form);
        if (job.sample.empty() || outline.empty() || outline.back().title != form) {
            outline.push_back({form, page, top, {}});
        }
        if (!job.sample.empty()) {
            outline.back().below.push_back({Visible(job.sample), page, top, {}});
        }
    }

    // False when the typeface does not yield what the pages use.
    bool Complete(const std::string& title) {
        const Object resources = Object::newDictionary();
        if (!fonts.AddTo(pdf, resources)) {
            return false;
        }
        Object root = pdf.getRoot();
        root.replaceKey("/Pages", pageTree);
        pageTree.replaceKey("/Resources", resources);
        pageTree.replaceKey("/Kids", jobNodes);
        pageTree.replaceKey("/Count", Object::newInteger(pageCount));
        if (jobCount > 1 && !outline.empty()) {
            Object list = pdf.makeIndirectObject(
                Object::newDictionary({{"/Type", Object::newName("/Outlines")},
                                       {"/Count", Object::newInteger(std::ssize(outline))}}));
            Link(pdf, list, outline);
            root.replaceKey("/Outlines", list);
            root.replaceKey("/PageMode", Object::newName("/UseOutlines"));
        }
        data.title = title;
        AddArchiveData(pdf, data);
        return true;
    }

    // Comes last. The reason of a failure, empty on success.
    std::string WriteTo(Pipeline& out, const std::string& title) {
        if (pageCount == 0) {
            return "There is no page to print.";
        }
        // The library throws where it fails, which is not to cross this border.
        try {
            if (!Complete(title)) {
                return "The typeface's file could not be used.";
            }
            QPDFWriter writer(pdf);
            writer.setOutputPipeline(&out);
            writer.setMinimumPDFVersion("1.7");
            writer.setObjectStreamMode(qpdf_o_generate);
            writer.setDeterministicID(true);
            writer.write();
            return {};
        } catch (const std::exception& failure) {
            return std::string("The PDF file could not be made. ") + failure.what();
        }
    }

    Typeface& typeface;
    Landscape landscape;
    QPDF pdf;
    DocumentFonts fonts;
    Compressor compressor;
    // What every page has.
    const Object pageType = Object::newName("/Page");
    const Object filter = Object::newName("/FlateDecode");
    const Object none = Object::newNull();
    Object pageTree;
    Object jobNodes = Object::newArray();  // of the page tree, a branch for each job
    long long pageCount = 0;
    std::size_t jobCount = 0;
    std::vector<Entry> outline;
    DocumentData data;
};

PdfFile::PdfFile(Typeface& typeface, Landscape landscape)
    : document_(std::make_unique<Document>(typeface, landscape)) {}
PdfFile::~PdfFile() = default;

void PdfFile::Add(const PrintJob& job) {
    if (job.pages.empty()) {
        return;
    }
    Document& document = *document_;
    document.List(job, document.AddPages(job.pages));
    document.pageCount += std::ssize(job.pages);
    ++document.jobCount;
    for (const std::string& subject : {job.form, job.sample}) {
        if (!subject.empty()) {
            document.data.subjects.insert(subject);
        }
    }
}

bool PdfFile::HasPages() const {
    return document_->pageCount > 0;
}

std::string PdfFile::Content(const std::string& title, std::string& reason) {
    std::string content;
    Pl_String out("document", nullptr, content);
    reason = document_->WriteTo(out, title);
    return reason.empty() ? content : "";
}

std::optional<std::string> PdfFile::Write(const std::string& title, const std::string& fileName,
                                          ReadOnlyFile readOnly) {
    std::string reason;
    const auto failure = ReplaceFile(
        PathOf(fileName),
        [&](const PutPiece& put) {
            Pieces out(put);
            reason = document_->WriteTo(out, title);
            return reason.empty() ? out.Error() : std::make_error_code(std::errc::io_error);
        },
        readOnly);
    return reason.empty() ? failure : reason;
}

std::string PdfForQueue(const PrintJob& job, Typeface& typeface, std::string& reason) {
    PdfFile pdf(typeface, Landscape::kTurnedOntoPaper);
    pdf.Add(job);
    return pdf.Content(job.title, reason);
}

std::string PdfLibraries() {
    return std::string("HarfBuzz ") + hb_version_string() + ", qpdf " + QPDF::QPDFVersion();
}

}  // namespace qfr
