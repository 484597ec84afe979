#include <QLabel>
#include <QPlainTextEdit>
#include <QTableView>

#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

struct ReviewRig : WindowRig {
    ReviewRig() { form.RestoreFile(Example("example.qff")); }

    // By the command's key.
    void Review() {
        Face(form);
        Press(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
        Face(Find<QDialog>("ReviewDialog"));
    }
    QAbstractItemModel& Rows() const { return *Get<QTableView>("FindingsTable").model(); }
    std::string Sentences() const {
        std::string texts;
        for (int row = 0; row < Rows().rowCount(); ++row) {
            texts += Rows().index(row, 3).data().toString().toStdString() + "|";
        }
        return texts;
    }
    std::string Count() const { return Get<QLabel>("CountLabel").text().toStdString(); }
    std::string Why() const { return Get<QPlainTextEdit>("WhyEdit").toPlainText().toStdString(); }
    // The first row that says so becomes the current one.
    bool Choose(const std::string& sentence) {
        for (int row = 0; row < Rows().rowCount(); ++row) {
            if (Contains(Rows().index(row, 3).data().toString().toStdString(), sentence)) {
                Get<QTableView>("FindingsTable").selectRow(row);
                return true;
            }
        }
        return false;
    }
    // Goes from the chosen finding to where it is mended and types there. The window and the
    // control that have the focus when it opens.
    std::string GoTo(std::string_view keys) {
        QDialog& review = Find<QDialog>("ReviewDialog");
        std::string place;
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, [&] {
            for (QWidget* const opened : QApplication::topLevelWidgets()) {
                if (place.empty() && opened->isVisible() && opened != &review && opened != &form &&
                    qobject_cast<QDialog*>(opened) != nullptr) {
                    Face(*opened);
                    place = opened->objectName().toStdString() + " " + Focus();
                    Type(keys);
                }
            }
        });
        user.start(5);
        Press(Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !place.empty() && review.isVisible(); })) << place;
        user.stop();
        Face(review);
        return place;
    }
};

TEST(Review, ShowsWhatIsFoundAndWhy) {
    ReviewRig rig;
    rig.Review();
    EXPECT_EQ(rig.Count(), "0 errors, 14 warnings, 9 notes. Shown: 14.");
    EXPECT_EQ(rig.Focus(), "FindingsTable");
    EXPECT_THAT(
        rig.Why(),
        testing::AllOf(
            testing::StartsWith("The recovery is 58%"),
            testing::HasSubstr("puts the sample's results in doubt"),
            testing::EndsWith("(sample.recovery)\nTo be mended in Load Files, Quant. Files.")));
    EXPECT_THAT(rig.Rows().index(0, 3).data(Qt::ToolTipRole).toString().toStdString(),
                testing::StartsWith("The recovery is 58%"))
        << "where it is cut";
    rig.Press(Qt::Key_F1);
    EXPECT_EQ(rig.topics.back(), kReviewHelpTopic);

    const std::tuple<const char*, int, int> filters[] = {
        {"SeverityBox", 1, 0}, {"SeverityBox", 3, 9}, {"SeverityBox", 4, 23}, {"FormBox", 3, 8},
        {"SampleBox", 6, 1},   {"FormBox", 0, 6},     {"SeverityBox", 0, 4}};
    for (const auto& [box, choice, rows] : filters) {
        rig.Get<QComboBox>(box).setCurrentIndex(choice);
        EXPECT_EQ(rig.Rows().rowCount(), rows) << box << choice;
    }
    rig.Type("&c");
    EXPECT_EQ(
        QApplication::clipboard()->text().toStdString().substr(0, 141),
        "Severity\tForm\tSample, Compound\tFinding\tWhere to Mend It\tRule\n"
        "warning\t2\tZA103DL, 1,1-dichloroethene-d2\tThe recovery is 108%, outside (55-104).");
    rig.Type("&p");
    ASSERT_EQ(rig.sink.jobs.size(), 1U);
    EXPECT_EQ(rig.setups, 1);
    EXPECT_TRUE(HasText(rig.sink.jobs[0].pages.at(0), "REVIEW: 0 errors, 14 warnings; listed: 4"));
}

TEST(Review, LeadsToWhereFindingsAreMended) {
    ReviewRig rig;
    Entries& entries = rig.form.Entries();
    entries.Tune.Abundances[2] = "99.0";
    entries.StandardSummary.SampleNo = "vstd051";
    entries.Comments.Lines = {std::string(150, 'a')};
    rig.Samples()[2].Header[HeaderField::kLabName] = "Lab";
    rig.Samples()[6].TicList->at(1).cells[2].clear();
    rig.Samples()[7].Header[HeaderField::kDateReceived] = "05/19/2005 10:00";
    rig.Samples()[8].FileName = rig.form.Batch().Files.QFiles[7] = "/gone.prn";
    // What is said; the window and control; what mends it and closes the window.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Lab Name is \"Lab\", as", "TForm1Header Edit1", "Fairhaven Analytical\33"},
        {"Received 05/19", "TForm1Header MaskEdit1", "05132005 1445\33"},
        {"Row 2 lacks", "TTICForm StringGrid1", "\t\t9.87\r&o"},
        {"m/e 95 is 99.0", "TTuneForm StringGrid1", "100.0\r&o"},
        {"has vstd051", "TARTSummForm SampleEdit", "vstd050cc&o"},
        {"runs off the page", "TMBSHeader RichEdit1", "^aShort.&o"},
        {"gone.prn is not there", "TFilesDlg QFilesList", "&d&o"},
    };
    rig.Review();
    for (const auto& [sentence, place, keys] : cases) {
        ASSERT_TRUE(rig.Choose(sentence)) << sentence;
        EXPECT_EQ(rig.GoTo(keys), place);
        EXPECT_THAT(rig.Sentences(), testing::Not(testing::HasSubstr(sentence)));
    }
    EXPECT_EQ(rig.sink.jobs.size(), 0U) << "nothing is printed on the way";
    EXPECT_THAT(rig.Count(), testing::StartsWith("0 errors, "));
    EXPECT_THAT(rig.log.TakeTexts(), testing::IsEmpty());
    rig.Type("&l");
    rig.Face(rig.form);
}

TEST(Review, LooksAgainAndSaysWhenNothingIsLeft) {
    ReviewRig rig;
    rig.form.Batch() = {};
    rig.Face(rig.form);
    rig.Press(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(rig.log.TakeTitles(), testing::ElementsAre("Files Not Specified"));

    rig.form.RestoreFile(Example("example.qff"));
    rig.Review();
    const int rows = rig.Rows().rowCount();
    rig.Samples()[3].Header[HeaderField::kConcUnits] = "ug/kg";
    rig.Type("&r");
    EXPECT_EQ(rig.Rows().rowCount(), rows + 1);
    EXPECT_EQ(rig.Why().substr(0, 19), "The recovery is 58%") << "the chosen one stays";
    // Nothing of all that is left.
    rig.Get<QComboBox>("SampleBox").setCurrentIndex(1);
    EXPECT_EQ(rig.Rows().rowCount(), 0);
    EXPECT_FALSE(rig.Get("GoToButton").isEnabled() || rig.Get("PrintButton").isEnabled());
    EXPECT_EQ(rig.Why(), "");
}

TEST(Review, IsOfferedBeforeEverythingIsPrinted) {
    ReviewRig rig;
    rig.Samples()[3].Header[HeaderField::kConcUnits] = "ug/kg";
    QTimer::singleShot(0, [&] {
        rig.Face(*QApplication::activeModalWidget());
        EXPECT_EQ(rig.Get<QLabel>("ReviewLabel").text(),
                  "A reviewer would find 1 error and 14 warnings.");
        rig.Type("&r");
    });
    rig.Press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(rig.Find<QDialog>("ReviewDialog").isVisible());
    EXPECT_TRUE(rig.sink.begun.empty());
}

}  // namespace
}  // namespace qfr::test
