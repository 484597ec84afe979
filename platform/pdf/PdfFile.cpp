#include "platform/pdf/PdfFile.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <hb.h>
#include <qpdf/Buffer.hh>
#include <qpdf/Pl_Flate.hh>
#include <qpdf/Pl_String.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFWriter.hh>
#include <utility>
#include <vector>

#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "platform/pdf/ArchiveData.h"
#include "platform/pdf/DocumentFonts.h"
#include "platform/pdf/PdfNumbers.h"

namespace qfr {

namespace {

using Object = QPDFObjectHandle;

constexpr char kNoPages[] = "There is no page to print.";

Object Points(int pixels) {
    std::string text;
    AppendNumber(text, pixels * 72.0 / kResolution);
    return Object::newReal(text);
}

std::string Compressed(const std::string& content) {
    std::string compressed;
    Pl_String last("page", nullptr, compressed);
    Pl_Flate flate("page", &last, Pl_Flate::a_deflate);
    flate.writeString(content);
    flate.finish();
    return compressed;
}

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
        const Object place =
            Object::newArray(std::vector<Object>{entry.page, Object::newName("/XYZ"),
                                                 Object::newInteger(0), entry.top,
                                                 Object::newNull()});
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
    Document(Typeface& forms, Landscape lying)
        : typeface(forms), landscape(lying), fonts(forms) {
        pdf.emptyPDF();
        pageTree = pdf.getRoot().getKey("/Pages");
        resources = pdf.makeIndirectObject(Object::newDictionary());
    }

    // A page of the job, below the job's node.
    Object AddPage(const JobPage& page, const Object& node) {
        const bool turned = landscape == Landscape::kTurnedOntoPaper &&
                            page.orientation == PageOrientation::kLandscape;
        Object content = pdf.newStream();
        content.replaceStreamData(Compressed(PageContent(page, landscape, typeface, fonts)),
                                  Object::newName("/FlateDecode"), Object::newNull());
        const Object zero = Object::newInteger(0);
        const Object box = Object::newArray(
            std::vector<Object>{zero, zero, Points(turned ? page.height : page.width),
                                Points(turned ? page.width : page.height)});
        return pdf.makeIndirectObject(
            Object::newDictionary({{"/Type", Object::newName("/Page")},
                                   {"/Parent", node},
                                   {"/MediaBox", box},
                                   {"/Resources", resources},
                                   {"/Contents", content}}));
    }

    // Where a reader of the outline is led to: the first page that shows something. A form may open
    // with an empty page, which is no sight.
    void List(const PrintJob& job, Object pages) {
        const auto shown = std::ranges::find_if(job.pages,
                                                [](const JobPage& p) { return !p.items.empty(); });
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
        if (!fonts.AddTo(pdf, resources)) {
            return false;
        }
        Object root = pdf.getRoot();
        root.replaceKey("/Pages", pageTree);
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

    Typeface& typeface;
    Landscape landscape;
    QPDF pdf;
    DocumentFonts fonts;
    Object resources;  // of all pages; filled when all characters are known
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
    Object pages = Object::newArray();
    Object node = document.pdf.makeIndirectObject(
        Object::newDictionary({{"/Type", Object::newName("/Pages")},
                               {"/Parent", document.pageTree},
                               {"/Count", Object::newInteger(std::ssize(job.pages))},
                               {"/Kids", pages}}));
    for (const JobPage& page : job.pages) {
        pages.appendItem(document.AddPage(page, node));
    }
    document.jobNodes.appendItem(node);
    document.pageCount += std::ssize(job.pages);
    ++document.jobCount;
    document.List(job, pages);
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
    if (!HasPages()) {
        reason = kNoPages;
        return {};
    }
    // The library throws where it fails, which is not to cross this border.
    try {
        if (!document_->Complete(title)) {
            reason = "The typeface's file could not be used.";
            return {};
        }
        std::string content;
        Pl_String out("document", nullptr, content);
        QPDFWriter writer(document_->pdf);
        writer.setOutputPipeline(&out);
        writer.setMinimumPDFVersion("1.7");
        writer.setObjectStreamMode(qpdf_o_generate);
        writer.setDeterministicID(true);
        writer.write();
        return content;
    } catch (const std::exception& failure) {
        reason = std::string("The PDF file could not be made. ") + failure.what();
        return {};
    }
}

std::optional<std::string> PdfFile::Write(const std::string& title, const std::string& fileName,
                                          ReadOnlyFile readOnly) {
    std::string reason;
    const std::string content = Content(title, reason);
    return content.empty() ? reason : ReplaceFile(PathOf(fileName), content, readOnly);
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
