#include "platform/qt/PdfFile.h"

#include <string_view>

#include <QBuffer>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/qt/PagePainter.h"
#include "platform/qt/PaperSize.h"
#include "platform/qt/PdfOutline.h"

namespace qfr {

QByteArray RenderPdf(const std::vector<PrintJob>& jobs, const std::string& title, FormFonts& fonts,
                     Landscape landscape) {
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kResolution);
    writer.setTitle(QString::fromStdString(title));
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
                                    const std::string& fileName, FormFonts& fonts) {
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
        std::string_view(content.constData(), static_cast<std::size_t>(content.size())));
}

}  // namespace qfr
