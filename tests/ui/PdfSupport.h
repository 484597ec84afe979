// What other programs see in a PDF document, and jobs to make one of.
#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>

#include "platform/FileLookup.h"
#include "platform/qt/QtTextMetrics.h"
#include "tests/Support.h"

namespace qfr::test {

// What a program of poppler's or qpdf's writes about the document.
inline QByteArray DescribedBy(const QString& program, QStringList arguments,
                              const std::string& pdf) {
    const TempDir directory;
    arguments << QString::fromStdString(directory.Write("document.pdf", pdf));
    if (program == "pdftotext") {
        arguments << "-";
    }
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString() << " (poppler-utils, qpdf)";
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

inline int PagesOf(const std::string& pdf) {
    const QRegularExpression pattern("Pages: +(\\d+)");
    return pattern.match(DescribedBy("pdfinfo", {}, pdf)).captured(1).toInt();
}

// The outline of a document without faults, as "Form I VOA 1 [MW-1 1][MW-2 4]Form II 7 ", each
// entry with its page.
inline std::string OutlineOf(const std::string& pdf) {
    DescribedBy("qpdf", {"--check"}, pdf);
    const auto entries = [](const auto& self, const QJsonArray& list) -> QString {
        QString text;
        for (const QJsonValue& entry : list) {
            const QJsonArray below = entry["kids"].toArray();
            EXPECT_FALSE(entry["open"].toBool() && !below.isEmpty());
            text += QString("%1 %2 ")
                        .arg(entry["title"].toString())
                        .arg(entry["destpageposfrom1"].toInt());
            text += below.isEmpty() ? "" : "[" + self(self, below) + "]";
        }
        return text;
    };
    const auto json =
        QJsonDocument::fromJson(DescribedBy("qpdf", {"--json", "--json-key=outlines"}, pdf));
    return entries(entries, json["outlines"].toArray()).toStdString();
}

// A word and its place on its page, in inches from the page's top-left corner.
struct Word {
    std::string text;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

inline std::vector<Word> WordsOf(const std::string& pdf) {
    const QRegularExpression pattern(
        "<word xMin=\"(.*)\" yMin=\"(.*)\" xMax=\"(.*)\" yMax=\"(.*)\">(.*)</word>");
    std::vector<Word> words;
    auto matches = pattern.globalMatch(DescribedBy("pdftotext", {"-bbox"}, pdf));
    while (matches.hasNext()) {
        const auto match = matches.next();
        const auto inches = [&match](int group) { return match.captured(group).toDouble() / 72; };
        words.push_back(
            {match.captured(5).toStdString(), inches(1), inches(2), inches(3), inches(4)});
    }
    return words;
}

inline int Pixels(double inches) {
    return static_cast<int>(inches * kResolution);
}

// A page of US Letter.
inline JobPage LetterPage(std::vector<PageItem> items = {}, bool turned = false) {
    JobPage page{PageOrientation::kPortrait, Pixels(8.5), Pixels(11), std::move(items)};
    if (turned) {
        page.orientation = PageOrientation::kLandscape;
        std::swap(page.width, page.height);
    }
    return page;
}

// A text at inches, its cell as the canvas would measure it.
inline TextItem TextAt(double x, double y, const std::string& text, int points = 10) {
    FormFonts fonts;
    QtTextMetrics metrics(fonts);
    return {Pixels(x), Pixels(y), metrics.TextWidth(text, points), metrics.TextHeight(points),
            points,    text};
}

inline RuleItem RuleBetween(double x1, double y1, double x2, double y2, int penWidth = 6) {
    return {Pixels(x1), Pixels(y1), Pixels(x2), Pixels(y2), penWidth};
}

}  // namespace qfr::test
