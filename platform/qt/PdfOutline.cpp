#include "platform/qt/PdfOutline.h"

#include <algorithm>
#include <cstddef>
#include <exception>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace qfr {

namespace {

// An entry of the outline.
struct Entry {
    std::string title;
    std::size_t page = 0;  // from 0
    std::vector<Entry> below;
};

std::vector<Entry> EntriesOf(const std::vector<PrintJob>& jobs) {
    std::vector<Entry> forms;
    std::size_t page = 0;
    for (const PrintJob& job : jobs) {
        // A form may open with an empty page, which is no sight to be led to.
        const auto shown = std::find_if(job.pages.begin(), job.pages.end(),
                                        [](const JobPage& p) { return !p.items.empty(); });
        if (shown == job.pages.end()) {
            page += job.pages.size();
            continue;
        }
        const std::size_t first = page + static_cast<std::size_t>(shown - job.pages.begin());
        const std::string& form = job.form.empty() ? job.title : job.form;
        if (job.sample.empty() || forms.empty() || forms.back().title != form) {
            forms.push_back({form, first, {}});
        }
        if (!job.sample.empty()) {
            forms.back().below.push_back({job.sample, first, {}});
        }
        page += job.pages.size();
    }
    return forms;
}

// The page's top edge, at the size at which the reader reads.
QPDFObjectHandle TopOf(const QPDFObjectHandle& page) {
    const auto box = QPDFPageObjectHelper(page).getMediaBox().getArrayAsRectangle();
    return QPDFObjectHandle::newArray(
        {page, QPDFObjectHandle::newName("/XYZ"), QPDFObjectHandle::newReal(box.llx),
         QPDFObjectHandle::newReal(box.ury), QPDFObjectHandle::newNull()});
}

// Links the entries to each other and to what they stand below.
void Link(QPDF& document, QPDFObjectHandle above, const std::vector<Entry>& entries) {
    const std::vector<QPDFObjectHandle>& pages = document.getAllPages();
    QPDFObjectHandle last;
    for (const Entry& entry : entries) {
        QPDFObjectHandle item = document.makeIndirectObject(QPDFObjectHandle::newDictionary());
        item.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(entry.title));
        item.replaceKey("/Parent", above);
        item.replaceKey("/Dest", TopOf(pages.at(entry.page)));
        if (last.isInitialized()) {
            item.replaceKey("/Prev", last);
            last.replaceKey("/Next", item);
        } else {
            above.replaceKey("/First", item);
        }
        last = item;
        if (!entry.below.empty()) {
            Link(document, item, entry.below);
            // Folded, so that all forms are in sight however many samples there are.
            item.replaceKey("/Count", QPDFObjectHandle::newInteger(-std::ssize(entry.below)));
        }
    }
    above.replaceKey("/Last", last);
}

}  // namespace

std::optional<std::string> AddOutline(QByteArray& pdf, const std::vector<PrintJob>& jobs) {
    const std::vector<Entry> entries = EntriesOf(jobs);
    if (entries.empty()) {
        return std::nullopt;
    }
    try {
        QPDF document;
        document.processMemoryFile("pages", pdf.constData(), static_cast<std::size_t>(pdf.size()));
        QPDFObjectHandle outline = document.makeIndirectObject(QPDFObjectHandle::newDictionary());
        outline.replaceKey("/Type", QPDFObjectHandle::newName("/Outlines"));
        outline.replaceKey("/Count", QPDFObjectHandle::newInteger(std::ssize(entries)));
        Link(document, outline, entries);
        document.getRoot().replaceKey("/Outlines", outline);
        document.getRoot().replaceKey("/PageMode", QPDFObjectHandle::newName("/UseOutlines"));

        QPDFWriter writer(document);
        writer.setOutputMemory();
        // The pages are compressed already.
        writer.setStreamDataMode(qpdf_s_preserve);
        writer.setDeterministicID(true);
        writer.write();
        const auto content = writer.getBufferSharedPointer();
        pdf = QByteArray(reinterpret_cast<const char*>(content->getBuffer()),
                         static_cast<qsizetype>(content->getSize()));
    } catch (const std::exception& failure) {
        return std::string("The outline could not be made: ") + failure.what();
    }
    return std::nullopt;
}

std::string OutlineLibrary() {
    return "qpdf " + QPDF::QPDFVersion();
}

}  // namespace qfr
