#include "tests/ui/PdfSupport.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "platform/qt/QtTextMetrics.h"

namespace qfr::test {

namespace {

int Pixels(double inches) {
    return static_cast<int>(inches * kResolution);
}

}  // namespace

QString Poppler(const QString& program, const QStringList& options, const QByteArray& pdf) {
    const QTemporaryDir directory;
    QFile file(directory.filePath("document.pdf"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size());
    file.close();
    QProcess process;
    QStringList arguments = options + QStringList{file.fileName()};
    if (program == "pdftotext") {
        arguments += "-";
    }
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString() << " (poppler-utils)";
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

std::vector<Word> WordsOf(const QByteArray& pdf) {
    static const QRegularExpression pattern(
        "<page |<word xMin=\"([^\"]*)\" yMin=\"([^\"]*)\" xMax=\"([^\"]*)\" yMax=\"([^\"]*)\">"
        "(.*)</word>");
    std::vector<Word> words;
    int page = 0;
    auto matches = pattern.globalMatch(Poppler("pdftotext", {"-bbox"}, pdf));
    while (matches.hasNext()) {
        const auto match = matches.next();
        if (match.captured(5).isEmpty()) {
            ++page;
            continue;
        }
        const auto inches = [&](int group) { return match.captured(group).toDouble() / 72; };
        words.push_back({page, match.captured(5), inches(1), inches(3), inches(2), inches(4)});
    }
    return words;
}

QImage Rasterise(const QByteArray& pdf, int page, int resolution) {
    const QTemporaryDir directory;
    QFile file(directory.filePath("document.pdf"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size());
    file.close();
    const QString number = QString::number(page);
    EXPECT_EQ(QProcess::execute("pdftoppm", {"-png", "-gray", "-singlefile", "-f", number, "-l",
                                             number, "-r", QString::number(resolution),
                                             file.fileName(), directory.filePath("page")}),
              0);
    return QImage(directory.filePath("page.png"));
}

JobPage LetterPage(PageOrientation orientation) {
    const int across = Pixels(kLetterPaper.width);
    const int down = Pixels(kLetterPaper.height);
    return orientation == PageOrientation::kPortrait ? JobPage{orientation, across, down, {}}
                                                     : JobPage{orientation, down, across, {}};
}

TextItem TextAt(double x, double y, const std::string& text, int points) {
    FormFonts fonts;
    QtTextMetrics metrics(fonts);
    return {Pixels(x), Pixels(y), metrics.TextWidth(text, points), metrics.TextHeight(points),
            points,    text};
}

RuleItem RuleBetween(double x1, double y1, double x2, double y2, int penWidth) {
    return {Pixels(x1), Pixels(y1), Pixels(x2), Pixels(y2), penWidth};
}

}  // namespace qfr::test
