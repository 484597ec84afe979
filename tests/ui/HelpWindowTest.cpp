// The help file as it is built, through the viewer and its window.
#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QWindow>

#include "platform/qt/HelpFile.h"
#include "platform/qt/HelpViewer.h"
#include "platform/qt/HelpWindow.h"
#include "tests/ui/WindowRig.h"

namespace qfr {
namespace {

using namespace test;

struct Help : testing::Test, WindowUser {
    void Show(int topic) {
        help.ShowTopic(topic);
        Face(help);
    }
    QTextBrowser& Page() { return Get<QTextBrowser>("Page"); }
    std::string Heading() { return Page().document()->firstBlock().text().toStdString(); }

    HelpWindow help{HelpFile::Open(QFR_HELP_FILE)};
};

TEST_F(Help, HasAPageForEveryWindow) {
    std::string headings;
    for (const int topic :
         {10, 105, 110, 120, 420, 121, 122, 130, 140, 150, 160, 170, 180, 200, 999}) {
        Show(topic);  // 999 is no window's
        headings += Heading() + "|";
    }
    EXPECT_EQ(
        headings,
        "QFR Forms|Load Files|Form 1 Header|Form 1 TIC Header|Tentatively Identified Compound "
        "Input|Form 2 Advisory Recovery Ranges|Method Blank Summary Comment|Instrument "
        "Performance Check|Initial Calibration Data|Continuing Calibration Data Input|Internal "
        "Standard Summary Input|Print All Forms|Printing|Edit All Headers|QFR "
        "Forms|");
}

TEST_F(Help, HoldsWhatItsPagesReferTo) {
    const auto file = HelpFile::Open(QFR_HELP_FILE);
    static const QRegularExpression reference("(?:href|src)=\"([^\"#]+)");
    QStringList paths;
    for (const HelpChapter& chapter : file->Contents()) {
        paths += chapter.page;
    }
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const auto bytes = file->Read(paths[i]);
        ASSERT_TRUE(bytes && !bytes->isEmpty()) << paths[i].toStdString();
        for (auto found = reference.globalMatch(*bytes); found.hasNext();) {
            paths += found.next().captured(1);
        }
        paths.removeDuplicates();
    }
    EXPECT_TRUE(paths.contains("pictures/load-files.png"));
}

TEST_F(Help, FollowsTheLinksOfItsOwnPagesOnly) {
    Show(10);
    Page().setSource(QUrl("load-files.html"));
    Page().setSource(QUrl("http://example.com/"));
    EXPECT_EQ(Heading(), "Load Files");
    EXPECT_EQ(Get<QTreeWidget>("Contents").currentItem()->text(0), "Loading files");
    Press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Heading(), "QFR Forms");
}

TEST_F(Help, FindsInThePage) {
    Show(105);
    Type("^f");
    Type("CLEAR all");
    EXPECT_EQ(Page().textCursor().selectedText(), "Clear All");
    Type("ergy");
    EXPECT_EQ(Get<QLabel>("FindState").text(), "Not found");
}

TEST_F(Help, TakesInputAboveAModalDialog) {
    Show(10);
    for (const bool opened : {false, true}) {
        QDialog dialog;
        QTimer::singleShot(0, &dialog, [&] {
            if (opened) {
                Show(150);
            }
            Face(help);
            QTest::mouseClick(help.windowHandle(), Qt::LeftButton, {},
                              Get("HomeButton").mapTo(&help, QPoint(5, 5)));
            EXPECT_EQ(Heading(), "QFR Forms");
            QTest::keyClick(help.windowHandle(), Qt::Key_Escape);
            EXPECT_FALSE(help.isVisible());
            EXPECT_TRUE(dialog.isVisible());
            dialog.reject();
        });
        dialog.exec();
    }
}

TEST_F(Help, ReadsNoFileButItsOwn) {
    const TempDir dir;
    const std::string whole = ReadAll(QFR_HELP_FILE);
    for (const std::string& bytes : {std::string(), whole.substr(1), whole + '\0', whole}) {
        dir.Write("QFRHelp.chm", bytes);
        EXPECT_EQ(HelpViewer(dir.Path() / "QFRHelp.chm").Open(10), bytes == whole);
    }
    EXPECT_FALSE(HelpViewer(dir.Path() / "none.chm").Open(10));
}

}  // namespace
}  // namespace qfr
