#include "platform/qt/PdfFile.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <qpdf/qpdf-c.h>

#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/Text.h"
#include "platform/qt/PagePainter.h"

namespace qfr {

namespace {

// An entry of the outline.
struct Entry {
    std::string title;
    std::size_t page = 0;  // from 0
    double top = 0;        // of the page, points
    std::vector<Entry> below;
};

std::vector<Entry> EntriesOf(const std::vector<PrintJob>& jobs) {
    std::vector<Entry> forms;
    std::size_t page = 0;
    for (const PrintJob& job : jobs) {
        const std::size_t start = std::exchange(page, page + job.pages.size());
        // A form may open with an empty page, which is no sight to be led to.
        const auto shown = std::find_if(job.pages.begin(), job.pages.end(),
                                        [](const JobPage& p) { return !p.items.empty(); });
        if (shown == job.pages.end()) {
            continue;
        }
        const std::size_t first = start + static_cast<std::size_t>(shown - job.pages.begin());
        const std::string form = Visible(job.form.empty() ? job.title : job.form);
        const double top = shown->height * 72.0 / kResolution;
        if (job.sample.empty() || forms.empty() || forms.back().title != form) {
            forms.push_back({form, first, top, {}});
        }
        if (!job.sample.empty()) {
            forms.back().below.push_back({Visible(job.sample), first, top, {}});
        }
    }
    return forms;
}

// The document as the library's C interface has it, which its C++ headers do not offer to every
// compiler. A failed call leaves an error behind and does nothing.
class Document {
  public:
    explicit Document(const QByteArray& pdf) {
        qpdf_read_memory(data_.get(), "pages", pdf.constData(),
                         static_cast<unsigned long long>(pdf.size()), nullptr);
    }

    void AddOutline(const std::vector<Entry>& entries) {
        const qpdf_oh outline = NewObject();
        Put(outline, "/Type", qpdf_oh_new_name(Data(), "/Outlines"));
        Put(outline, "/Count", Integer(std::ssize(entries)));
        Link(outline, entries);
        const qpdf_oh root = qpdf_get_root(Data());
        Put(root, "/Outlines", outline);
        Put(root, "/PageMode", qpdf_oh_new_name(Data(), "/UseOutlines"));
    }

    // Null after a failure.
    QByteArray Content() {
        if (qpdf_has_error(Data()) || qpdf_init_write_memory(Data()) != QPDF_SUCCESS) {
            return {};
        }
        // The pages are compressed already.
        qpdf_set_stream_data_mode(Data(), qpdf_s_preserve);
        qpdf_set_deterministic_ID(Data(), QPDF_TRUE);
        if ((qpdf_write(Data()) & QPDF_ERRORS) != 0) {
            return {};
        }
        return {reinterpret_cast<const char*>(qpdf_get_buffer(Data())),
                static_cast<qsizetype>(qpdf_get_buffer_length(Data()))};
    }

    std::string Failure() {
        return qpdf_has_error(Data())
                   ? qpdf_get_error_message_detail(Data(), qpdf_get_error(Data()))
                   : "";
    }

  private:
    struct Release {
        void operator()(qpdf_data data) const { qpdf_cleanup(&data); }
    };

    qpdf_data Data() const { return data_.get(); }
    qpdf_oh NewObject() {
        return qpdf_make_indirect_object(Data(), qpdf_oh_new_dictionary(Data()));
    }
    qpdf_oh Integer(std::ptrdiff_t value) { return qpdf_oh_new_integer(Data(), value); }
    void Put(qpdf_oh object, const char* key, qpdf_oh value) {
        qpdf_oh_replace_key(Data(), object, key, value);
    }

    // The page's top edge, at the size at which the reader reads.
    qpdf_oh TopOf(const Entry& entry) {
        const qpdf_oh place = qpdf_oh_new_array(Data());
        for (const qpdf_oh part :
             {qpdf_get_page_n(Data(), entry.page), qpdf_oh_new_name(Data(), "/XYZ"), Integer(0),
              qpdf_oh_new_real_from_double(Data(), entry.top, 2), qpdf_oh_new_null(Data())}) {
            qpdf_oh_append_item(Data(), place, part);
        }
        return place;
    }

    // Links the entries to each other and to what they stand below.
    void Link(qpdf_oh above, const std::vector<Entry>& entries) {
        qpdf_oh last = 0;
        for (const Entry& entry : entries) {
            const qpdf_oh item = NewObject();
            Put(item, "/Title", qpdf_oh_new_unicode_string(Data(), entry.title.c_str()));
            Put(item, "/Parent", above);
            Put(item, "/Dest", TopOf(entry));
            if (last == 0) {
                Put(above, "/First", item);
            } else {
                Put(item, "/Prev", last);
                Put(last, "/Next", item);
            }
            last = item;
            if (!entry.below.empty()) {
                Link(item, entry.below);
                // Folded, so that all forms are in sight however many samples there are.
                Put(item, "/Count", Integer(-std::ssize(entry.below)));
            }
        }
        Put(above, "/Last", last);
    }

    std::unique_ptr<_qpdf_data, Release> data_{qpdf_init()};
};

// Lists the jobs whose pages `pdf` holds, in order: below each form its samples, each leading to
// its first page that shows something; a viewer opens the document with the list beside the pages.
// The reason of a failure, absent on success; after a failure `pdf` is as it was.
std::optional<std::string> AddOutline(QByteArray& pdf, const std::vector<PrintJob>& jobs) {
    const std::vector<Entry> entries = EntriesOf(jobs);
    if (entries.empty()) {
        return std::nullopt;
    }
    Document document(pdf);
    document.AddOutline(entries);
    QByteArray content = document.Content();
    if (content.isNull()) {
        return "The outline could not be made. " + document.Failure();
    }
    pdf = std::move(content);
    return std::nullopt;
}

}  // namespace

QByteArray RenderPdf(const std::vector<PrintJob>& jobs, const std::string& title, FormFonts& fonts,
                     Landscape landscape) {
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kResolution);
    writer.setTitle(QString::fromStdString(Visible(title)));
    writer.setCreator(QStringLiteral("QFR Forms"));
    QPainter painter;
    for (const PrintJob& job : jobs) {
        for (const JobPage& page : job.pages) {
            const bool turned = landscape == Landscape::kTurnedOntoPaper &&
                                page.orientation == PageOrientation::kLandscape;
            writer.setPageLayout(
                LayoutOf(job.paper, turned ? PageOrientation::kPortrait : page.orientation));
            if (painter.isActive() ? !writer.newPage() : !painter.begin(&writer)) {
                return {};
            }
            painter.save();
            if (turned) {
                painter.translate(0, page.width);
                painter.rotate(-90);
            }
            PaintPage(painter, page, fonts);
            painter.restore();
        }
    }
    if (!painter.isActive() || !painter.end()) {
        return {};
    }
    return content;
}

std::optional<std::string> WritePdf(const std::vector<PrintJob>& jobs, const std::string& title,
                                    const std::string& fileName, FormFonts& fonts,
                                    ReadOnlyFile readOnly) {
    QByteArray content = RenderPdf(jobs, title, fonts);
    if (content.isEmpty()) {
        return "There is no page to write.";
    }
    if (jobs.size() > 1) {
        if (auto reason = AddOutline(content, jobs)) {
            return reason;
        }
    }
    return ReplaceFile(
        PathOf(fileName),
        std::string_view(content.constData(), static_cast<std::size_t>(content.size())), readOnly);
}

std::string OutlineLibrary() {
    return std::string("qpdf ") + qpdf_get_qpdf_version();
}

}  // namespace qfr
