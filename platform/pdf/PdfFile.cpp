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

#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "platform/pdf/ArchiveData.h"
#include "platform/pdf/DocumentFonts.h"
#include "platform/pdf/PdfNumbers.h"
#include "platform/pdf/Qpdf.h"

namespace qfr {

namespace {

using Object = QPDFObjectHandle;

Object Points(int pixels) {
    std::string text;
    AppendNumber(text, pixels * kPointsPerInch / kResolution);
    return Object::newReal(text);
}

// Compresses the pages of a document one after another; what that takes is by far larger than a
// page, and used again.
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

    std::string Compress(std::string content) {
        deflateReset(&state_);
        space_.resize(deflateBound(&state_, static_cast<uLong>(content.size())));
        state_.next_in = reinterpret_cast<Bytef*>(content.data());
        state_.avail_in = static_cast<uInt>(content.size());
        state_.next_out = reinterpret_cast<Bytef*>(space_.data());
        state_.avail_out = static_cast<uInt>(space_.size());
        // There is space for all of it.
        deflate(&state_, Z_FINISH);
        return space_.substr(0, state_.total_out);
    }

  private:
    z_stream state_{};
    std::string space_;
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

// What is kept of a page until the document is written.
struct Page {
    int width = 0;        // pixels, as it lies
    int height = 0;       // pixels, as it lies
    std::string content;  // compressed
};

// An entry of the outline, and those below it.
struct Entry {
    std::string title;
    std::size_t page = 0;  // of the document, from 0
    std::vector<Entry> below;
};

Object BoxOf(const Page& page) {
    const Object zero = Object::newInteger(0);
    return Object::newArray(
        std::vector<Object>{zero, zero, Points(page.width), Points(page.height)});
}

// The document as the library has it.
class Assembly {
  public:
    Assembly() { pdf_.emptyPDF(); }

    QPDF& Pdf() { return pdf_; }

    // The jobs become branches of the page tree. A large document consists of little else than
    // pages: what they have in common is there once, and `jobs` has lost their contents. Archives
    // want each page to name its resources itself.
    void AddPages(std::vector<std::vector<Page>>& jobs, const Object& resources) {
        Object tree = pdf_.getRoot().getKey("/Pages");
        Object branches = Object::newArray();
        const Object type = Object::newName("/Page");
        const Object filter = Object::newName("/FlateDecode");
        const Object none = Object::newNull();
        for (std::vector<Page>& pages : jobs) {
            const Page& first = pages.front();
            Object leaves = Object::newArray();
            const Object branch = pdf_.makeIndirectObject(
                Object::newDictionary({{"/Type", Object::newName("/Pages")},
                                       {"/Parent", tree},
                                       {"/MediaBox", BoxOf(first)},
                                       {"/Count", Object::newInteger(std::ssize(pages))},
                                       {"/Kids", leaves}}));
            for (Page& page : pages) {
                Object content = pdf_.newStream();
                content.replaceStreamData(std::exchange(page.content, {}), filter, none);
                Object leaf =
                    pdf_.makeIndirectObject(Object::newDictionary({{"/Type", type},
                                                                   {"/Parent", branch},
                                                                   {"/Resources", resources},
                                                                   {"/Contents", content}}));
                if (page.width != first.width || page.height != first.height) {
                    leaf.replaceKey("/MediaBox", BoxOf(page));
                }
                leaves.appendItem(leaf);
                pages_.emplace_back(leaf, Points(page.height));
            }
            branches.appendItem(branch);
        }
        tree.replaceKey("/Kids", branches);
        tree.replaceKey("/Count", Object::newInteger(std::ssize(pages_)));
    }

    void AddOutline(const std::vector<Entry>& entries) {
        Object list = pdf_.makeIndirectObject(
            Object::newDictionary({{"/Type", Object::newName("/Outlines")},
                                   {"/Count", Object::newInteger(std::ssize(entries))}}));
        Link(list, entries);
        Object root = pdf_.getRoot();
        root.replaceKey("/Outlines", list);
        root.replaceKey("/PageMode", Object::newName("/UseOutlines"));
    }

    void WriteTo(Pipeline& out) {
        QPDFWriter writer(pdf_);
        writer.setOutputPipeline(&out);
        writer.setMinimumPDFVersion("1.7");
        writer.setObjectStreamMode(qpdf_o_generate);
        writer.setDeterministicID(true);
        writer.setNewlineBeforeEndstream(true);  // as archives want it
        writer.write();
    }

  private:
    // Links the entries to each other and to what they stand below.
    void Link(Object above, const std::vector<Entry>& entries) {
        Object last = Object::newNull();
        for (const Entry& entry : entries) {
            // The page's top edge, at the size at which the reader reads.
            const auto& [page, top] = pages_[entry.page];
            const Object place = Object::newArray(std::vector<Object>{
                page, Object::newName("/XYZ"), Object::newInteger(0), top, Object::newNull()});
            Object item = pdf_.makeIndirectObject(
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
                Link(item, entry.below);
                // Folded, so that all forms are in sight however many samples there are.
                item.replaceKey("/Count", Object::newInteger(-std::ssize(entry.below)));
            }
        }
        above.replaceKey("/Last", last);
    }

    QPDF pdf_;
    std::vector<std::pair<Object, Object>> pages_;  // with their tops, points
};

}  // namespace

struct PdfFile::Document {
    Document(Typeface& forms, Landscape lying) : typeface(forms), landscape(lying), fonts(forms) {}

    void Add(const PrintJob& job) {
        List(job);
        std::vector<Page>& pages = jobs.emplace_back();
        for (const JobPage& page : job.pages) {
            const bool turned = landscape == Landscape::kTurnedOntoPaper &&
                                page.orientation == PageOrientation::kLandscape;
            pages.push_back({turned ? page.height : page.width, turned ? page.width : page.height,
                             compressor.Compress(PageContent(page, landscape, typeface, fonts))});
        }
        pageCount += job.pages.size();
        for (const std::string& subject : {job.form.empty() ? job.title : job.form, job.sample}) {
            if (!subject.empty()) {
                data.subjects.insert(subject);
            }
        }
    }

    // Where a reader of the outline is led to: the first page that shows something. A form may open
    // with an empty page, which is no sight. Comes before the job's pages are added.
    void List(const PrintJob& job) {
        const auto shown =
            std::ranges::find_if(job.pages, [](const JobPage& p) { return !p.items.empty(); });
        if (shown == job.pages.end()) {
            return;
        }
        const std::size_t page = pageCount + static_cast<std::size_t>(shown - job.pages.begin());
        const std::string form = Visible(job.form.empty() ? job.title : job.form);
        if (job.sample.empty() || outline.empty() || outline.back().title != form) {
            outline.push_back({form, page, {}});
        }
        if (!job.sample.empty()) {
            outline.back().below.push_back({Visible(job.sample), page, {}});
        }
    }

    // Comes last. The reason of a failure, empty on success.
    std::string WriteTo(Pipeline& out, const std::string& title) {
        if (jobs.empty()) {
            return "There is no page to print.";
        }
        // The library throws where it fails, which is not to cross this border.
        try {
            Assembly assembly;
            const Object resources = assembly.Pdf().makeIndirectObject(Object::newDictionary());
            if (!fonts.AddTo(assembly.Pdf(), resources)) {
                return "The typeface's file could not be used.";
            }
            assembly.AddPages(jobs, resources);
            if (jobs.size() > 1 && !outline.empty()) {
                assembly.AddOutline(outline);
            }
            data.title = title;
            AddArchiveData(assembly.Pdf(), data);
            assembly.WriteTo(out);
            return {};
        } catch (const std::exception& failure) {
            return std::string("The PDF file could not be made. ") + failure.what();
        }
    }

    Typeface& typeface;
    Landscape landscape;
    DocumentFonts fonts;
    Compressor compressor;
    std::vector<std::vector<Page>> jobs;
    std::size_t pageCount = 0;
    std::vector<Entry> outline;
    DocumentData data;
};

PdfFile::PdfFile(Typeface& typeface, Landscape landscape)
    : document_(std::make_unique<Document>(typeface, landscape)) {}
PdfFile::~PdfFile() = default;

void PdfFile::Add(const PrintJob& job) {
    if (!job.pages.empty()) {
        document_->Add(job);
    }
}

bool PdfFile::HasPages() const {
    return !document_->jobs.empty();
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
