// What other programs see in a PDF document, and jobs to make one of.
#pragma once

#include <string>
#include <vector>

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>

#include "platform/PrintJob.h"

namespace qfr::test {

// What poppler's program prints about the document.
QString Poppler(const QString& program, const QStringList& options, const QByteArray& pdf);

// A word and its place on its page, in inches from the page's top-left corner.
struct Word {
    int page = 0;  // from 1
    QString text;
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};
std::vector<Word> WordsOf(const QByteArray& pdf);

// The page, from 1, at so many dots per inch.
QImage Rasterise(const QByteArray& pdf, int page, int resolution);

// An empty page of US Letter.
JobPage LetterPage(PageOrientation orientation = PageOrientation::kPortrait);
// A text at inches, its cell as the canvas would measure it.
TextItem TextAt(double x, double y, const std::string& text, int points = 10);
RuleItem RuleBetween(double x1, double y1, double x2, double y2, int penWidth = 6);

}  // namespace qfr::test
