// The windows that a batch is made in: its files, and the headers of their forms.
#include <QLabel>
#include <QListWidget>
#include <QMimeData>

#include "data/FilesDlg.h"
#include "dialogs/Form1Header.h"
#include "forms/Form1VoaContent.h"
#include "platform/Text.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

using namespace ::testing;

// The dialog on a blank and a sample; only the blank's header is typed.
struct HeaderRig : WindowRig {
    HeaderRig() {
        SampleListType& samples = form.Batch().SampleList.emplace(2);
        form.Batch().Files.QFiles = {"c:\\data\\s1.prn"};
        samples[0].FileName = Example("VBLK01.PRN");
        samples[0].Header[HeaderField::kZovSampleNo] = "VBLK01";
        samples[0].Header[HeaderField::kLabName] = "Fairhaven";
        samples[1].FileName = "c:\\data\\s1.prn";
        samples[1].Header[HeaderField::kZovSampleNo] = "ZA101";
        samples[1].Header[HeaderField::kLabSampleId] = "L1";
        Open();
    }
    void Open(const char* key = "^1") {
        Face(form);
        Type(key);
        EXPECT_FALSE(form.isVisible());
        Face(dialog);
    }
    std::string Stored(std::size_t record, HeaderField field) {
        return Samples()[record].Header[field];
    }

    TForm1Header& dialog = Find<TForm1Header>("TForm1Header");
};

TEST(Form1Header, CarriesValuesOverToTheNextSample) {
    HeaderRig rig;
    EXPECT_EQ(rig.Focus(), "Edit1");
    EXPECT_EQ(rig.Shown("Edit1", "Edit16"), "|Fairhaven|Vocol") << "an empty value leaves the text";
    rig.Enter("Edit2", "C-17");
    rig.Get("ZOVComboBox").setFocus();
    EXPECT_EQ(rig.Stored(0, HeaderField::kContract), "C-17");
    EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "  /  /       :  ");

    rig.Press(Qt::Key_Down);
    EXPECT_EQ(rig.Shown("ZOVComboBox", "LabComboBox", "FileComboBox", "Edit2"),
              "|ZA101|L1|s1.prn|C-17");
    EXPECT_EQ(rig.Stored(1, HeaderField::kContract), "") << "not before a control is left";
    rig.Get("Edit2").setFocus();
    rig.Type("\t");
    EXPECT_EQ(rig.Stored(1, HeaderField::kContract), "C-17");

    rig.Type("&x");
    EXPECT_EQ(rig.Stored(1, HeaderField::kLabName), "Fairhaven");
    EXPECT_FALSE(rig.dialog.isVisible());
    EXPECT_TRUE(rig.form.isVisible());
}

TEST(Form1Header, KeepsTheDropDownsInStepWithWhatIsTyped) {
    HeaderRig rig;
    const auto& files = rig.Get<QComboBox>("FileComboBox");
    rig.Enter("ZOVComboBox", "ZA101\r");  // as another sample's
    EXPECT_EQ(files.currentIndex(), 0);
    EXPECT_EQ(rig.Get<QComboBox>("ZOVComboBox").itemText(0), "ZA101");
    rig.Type("\t");
    EXPECT_EQ(rig.Stored(0, HeaderField::kZovSampleNo), "ZA101");

    rig.Get("FileComboBox").setFocus();
    rig.Type("s1");
    EXPECT_EQ(files.currentIndex(), 0) << "typing chooses no file";
    rig.Press(Qt::Key_Down);
    EXPECT_EQ(files.currentIndex(), 1);
    EXPECT_EQ(rig.Shown("LabComboBox"), "|L1");
}

TEST(Form1Header, GoesThroughItsValuesColumnByColumn) {
    constexpr int kNumbers[] = {1,  3,  5, 6, 9, 10, 11, 13, 16, 17, 18, 20, 22,
                                24, 26, 4, 7, 8, 2,  12, 14, 15, 19, 21, 23, 25};
    HeaderRig rig;
    SampleHeader typed;
    rig.Get("ZOVComboBox").setFocus();
    for (const int number : kNumbers) {
        const HeaderField field = HeaderFieldAt(number);
        const bool date =
            field == HeaderField::kDateReceived || field == HeaderField::kDateAnalyzed;
        typed[field] = date ? "01/02/2005 03:04" : "x," + std::to_string(number);
        rig.Enter(rig.Focus(), date ? "010220050304" : "x;");
        date ? void() : rig.Paste(";" + std::to_string(number));
        rig.Type("\t");
    }
    EXPECT_EQ(rig.Samples()[0].Header.Values(), typed.Values());
}

TEST(Form1Header, TellsWhatBecomesOfADelimiter) {
    // The entry; what is typed or pasted.
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"Edit2", "a;b", false}, {"Edit2", "a;b", true}, {"ZOVComboBox", "V;", false}};
    HeaderRig rig;
    const auto told = [&rig] { return rig.Get<QLabel>("EntryNote").text().toStdString(); };
    for (const auto& [entry, text, pasted] : cases) {
        rig.Enter(entry, pasted ? "" : text);
        pasted ? rig.Paste(text) : void();
        EXPECT_THAT(told(), StartsWith("A value cannot hold \";\"")) << entry;
        rig.Type("\t");
        EXPECT_NE(told(), "") << "for whoever looks at what was entered only";
        rig.Enter("Edit5", "next");
        EXPECT_EQ(told(), "");
    }
    rig.Enter("Edit5", ";");
    rig.Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(told(), "");
}

TEST(Form1Header, WalksFromSampleToSample) {
    HeaderRig rig;
    const auto& files = rig.Get<QComboBox>("FileComboBox");
    EXPECT_EQ(rig.Get<QLabel>("PlaceLabel").text(), "1 of 2");
    EXPECT_FALSE(rig.Get("PreviousButton").isEnabled());
    rig.Enter("Edit2", "C-17");
    rig.Type("^a");
    rig.Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(rig.Get<QLabel>("PlaceLabel").text(), "2 of 2");
    EXPECT_EQ(rig.Shown("ZOVComboBox") + rig.Focus(), "|ZA101Edit2");
    EXPECT_EQ(rig.Stored(0, HeaderField::kContract), "C-17");
    rig.Press(Qt::Key_PageDown, Qt::ControlModifier);  // no further one
    rig.Type("D-1\t");
    rig.Press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(rig.Shown("ZOVComboBox", "Edit2"), "|VBLK01|C-17") << "typed over";
    EXPECT_EQ(rig.Stored(1, HeaderField::kContract), "D-1");
    rig.Enter("MaskEdit1", "023020051010");
    EXPECT_EQ(rig.Get<QLabel>("EntryNote").text(),
              "02/30/2005 does not exist: February 2005 has 28 days.");
    rig.Click("NextButton");
    rig.Use("", "The entry is not a correct date.", "MaskEdit1");
    EXPECT_EQ(files.currentIndex(), 0);
}

TEST(Form1Header, MarksWhatIsCompleteAndWhatOnlyCameAlong) {
    HeaderRig rig;
    const auto colour = [&rig](const char* name) {
        return rig.Get(name).palette().color(QPalette::Text);
    };
    const auto complete = [&rig](int sample) {
        const auto& list = rig.Get<QComboBox>("ZOVComboBox");
        return list.itemData(sample, Qt::AccessibleDescriptionRole).toString().toStdString();
    };
    EXPECT_NE(colour("Edit16"), colour("Edit1")) << "its own value is the laboratory's";
    EXPECT_THAT(rig.Get("Edit16").accessibleDescription().toStdString(), StartsWith("Came along"));
    rig.Get("Edit16").setFocus();
    rig.Type("\t");
    EXPECT_EQ(colour("Edit16"), colour("Edit1")) << "left, it is stored";
    EXPECT_EQ(rig.Get("Edit16").accessibleDescription(), "");
    EXPECT_THAT(complete(0), testing::EndsWith("more"));
    rig.dialog.close();
    for (int number = 2; number < SampleHeader::kCount; ++number) {
        rig.Samples()[0].Header[HeaderFieldAt(number)] = "x";
    }
    rig.Open();
    rig.Enter("Edit8", "\b\t");
    EXPECT_EQ(complete(0), "1 of 26 values is empty: Column Length");
    rig.Enter("Edit8", "30\t");
    EXPECT_EQ(complete(0), "Complete");
    EXPECT_EQ(rig.Get<QComboBox>("ZOVComboBox").itemText(0), "VBLK01");
}

TEST(Form1Header, TakesARenamedSampleBack) {
    // What is typed for the blank; what is said; the button; the sample shown then.
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"VB", "VBLK01 renamed to VB", "UndoRenameButton", "|VBLK01"},
        {"\b", "VBLK01 emptied", "UndoRenameButton", "|VBLK01"},
        {"ZA101", "VBLK01 renamed to ZA101, as another sample is called", "GoToButton", "|ZA101"}};
    for (const auto& [typed, said, button, shown] : cases) {
        for (const char* const left : {"", "\t", "in two goes"}) {
            HeaderRig rig;
            if (left == std::string("in two goes")) {
                rig.Enter("ZOVComboBox", "V\t");
            }
            rig.Enter("ZOVComboBox", typed);
            rig.Type(left == std::string("in two goes") ? "" : left);
            EXPECT_EQ(rig.Get<QLabel>("RenameLabel").text(), said);
            EXPECT_EQ(rig.Get("GoToButton").isVisible(), button == std::string("GoToButton"));
            rig.Click(button);
            EXPECT_EQ(rig.Shown("ZOVComboBox"), shown);
            EXPECT_EQ(rig.Get<QComboBox>("ZOVComboBox").itemText(0), "VBLK01");
            EXPECT_EQ(rig.Stored(0, HeaderField::kZovSampleNo), "VBLK01");
            EXPECT_FALSE(rig.Get("UndoRenameButton").isVisible());
        }
    }
}

TEST(Form1Header, HoldsTheUserAtAWrongDate) {
    // Keys, controls to click, and the close box.
    for (const std::string way : {"\t", "&p", "\33", "Edit1", "ZOVComboBox", "OkButton", ""}) {
        SCOPED_TRACE(way);
        HeaderRig rig;
        rig.Get("MaskEdit1").setFocus();
        rig.Use("\t", "", "MaskEdit2");
        EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "") << "left empty";
        rig.Enter("MaskEdit1", "023020051010");
        if (way.empty()) {
            rig.dialog.close();
        } else {
            way.size() < 3 ? rig.Type(way) : rig.Click(way);
        }
        rig.Use("", "The entry is not a correct date.", "MaskEdit1");
        EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "");
        EXPECT_TRUE(rig.dialog.isVisible() && rig.sink.jobs.empty());

        rig.Enter("MaskEdit1", "022820051010\t");
        EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "02/28/2005 10:10");
    }
}

TEST(Form1Header, TakesADateReceivedWithoutItsTime) {
    HeaderRig rig;
    rig.Enter("MaskEdit1", "02282005");
    rig.Use("\t");
    EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "02/28/2005");
    rig.Enter("MaskEdit2", "02282005");
    rig.Use("\t", "The entry is not a correct date.", "MaskEdit2");
    rig.Enter("MaskEdit2", "022820051010");
    rig.dialog.close();
    rig.Samples()[0].Header[HeaderField::kDateReceived] = "03/01/2005   :  ";  // of another hand
    PrintFormIVoa(rig.form, 0);
    EXPECT_TRUE(HasText(rig.sink.jobs.at(0).pages[0], "03/01/2005"));
    rig.Open();
    EXPECT_EQ(rig.Shown("MaskEdit1"), "|03/01/2005 :");
}

TEST(Form1Header, KeepsTheLaboratorysValuesInTwoFiles) {
    // The buttons that write and read a file, and its lines: values by their numbers.
    const std::tuple<const char*, const char*, std::string> files[] = {
        {"Button3", "Button4", "v3\nv4\nv5\nv6\nv7\nv8\nv17\nv18\nv26\nv19\nv20\nv21\nv22\n"},
        {"Button1", "Button2", "v3\nv5\nv4\nv7\nv17\nv18\nv26\n"}};
    for (const auto& [write, read, lines] : files) {
        HeaderRig rig;
        SampleHeader header;
        SampleHeader others;
        for (int number = 1; number <= SampleHeader::kCount; ++number) {
            const std::string value = "v" + std::to_string(number);
            header[HeaderFieldAt(number)] = value;
            others[HeaderFieldAt(number)] =
                Contains("\n" + lines, "\n" + value + "\n") ? "typed" : value;
        }
        for (const auto date : {HeaderField::kDateReceived, HeaderField::kDateAnalyzed}) {
            header[date] = others[date] = "01/02/2005 03:04";
        }
        const auto press = [&rig](const char* button, const SampleHeader& shown) {
            rig.dialog.close();
            rig.Samples()[0].Header = shown;
            rig.Open();
            rig.chooser.answers = {{rig.Path("DefaultInfo.txt")}};
            rig.Get<QAbstractButton>(button).click();
            rig.dialog.close();
        };
        press(write, header);
        EXPECT_EQ(rig.Read("DefaultInfo.txt"), lines);
        press(read, others);
        EXPECT_EQ(rig.Samples()[0].Header.Values(), header.Values()) << read;
        EXPECT_THAT(rig.log.TakeTitles(), IsEmpty());
        // With a delimiter, and without its last line.
        const std::size_t last = lines.rfind('v');
        rig.dir.Write("DefaultInfo.txt", "a;" + lines.substr(0, last));
        press(read, others);
        header[HeaderField::kLabName] = "a,v3";
        header[HeaderFieldAt(std::stoi(lines.substr(last + 1)))] = "typed";
        EXPECT_EQ(rig.Samples()[0].Header.Values(), header.Values()) << read;
        EXPECT_THAT(rig.log.shown.at(0).text, testing::EndsWith("\nDefaultInfo.txt: a;v3"));
        EXPECT_EQ(rig.log.TakeTitles().size(), lines.size() > 30 ? 2 : 1);
        if (write == std::string("Button1")) {
            EXPECT_EQ(rig.chooser.saved.at(0).kind, SaveKind::kLaboratoryFile);
            EXPECT_EQ(rig.chooser.saved.at(0).directory, "/texts");
            EXPECT_EQ(rig.chooser.opened.at(0).kind, FileKind::kText);
        }
    }
}

TEST(Form1Header, PrintsTheSampleShownOnTheFormOfItsMode) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"^1", "Edit7", "Form 1 VBLK01"}, {"^t", "Edit1", "Form 1 TIC VBLK01"}};
    HeaderRig rig;
    rig.Samples()[0].TicList.emplace(1);
    rig.form.SetPendingFocus(HeaderField::kSdgNo);
    rig.chooses = false;
    rig.Type("&p");
    EXPECT_TRUE(rig.sink.begun.empty()) << "the printer setup was cancelled";
    rig.chooses = true;
    for (const auto& [key, wanted, job] : cases) {
        rig.dialog.close();
        rig.Open(key);
        EXPECT_EQ(rig.Focus(), wanted);
        rig.Opened([&] { rig.Get<QAbstractButton>("EnterButton").click(); });
        rig.Face(rig.dialog);
        rig.Enter("Edit2", "C-99\r");
        EXPECT_TRUE(rig.dialog.isVisible()) << "Enter is for buttons";
        rig.Type("&p");
        EXPECT_EQ(rig.sink.jobs.back().title, job);
        EXPECT_TRUE(HasText(rig.sink.jobs.back().pages[0], "C-99"));
        rig.Click("Button5");
    }
    EXPECT_EQ(rig.setups, 2);
    EXPECT_THAT(rig.topics, ElementsAre(110, 420, 120));
}

struct FilesRig : WindowRig {
    FilesRig() { Open(); }
    void Open() {
        Face(form);
        Type("^O");
        Face(dialog);
    }
    void Choose(const char* button, const std::vector<std::string>& names) {
        chooser.answers.emplace_back();
        for (const std::string& name : names) {
            chooser.answers.back().push_back(Example(name));
        }
        Click(button);
    }
    std::vector<std::string> Recorded() {
        std::vector<std::string> names;
        for (const SampleRecord& record : form.Batch().SampleList.value_or(SampleListType())) {
            names.push_back(FileNameOnly(record.FileName));
        }
        return names;
    }

    TFilesDlg& dialog = Find<TFilesDlg>("TFilesDlg");
    QListWidget& list = *dialog.findChild<QListWidget*>("QFilesList");
};

TEST(FilesDlg, AssemblesABatch) {
    FilesRig rig;
    EXPECT_FALSE(rig.form.isVisible());
    rig.Choose("BrowseLabBlank", {"VBLK01.PRN"});
    rig.Choose("AddButton", {"ZA102.PRN", "ZA101.PRN", "VSTD005.D"});
    rig.Choose("BrowseCalibButton", {"VOA0516.CAL"});
    rig.Choose("BrowseChkCalButton", {"VSTD050C.CHECK"});
    EXPECT_EQ(rig.log.shown.size(), 1U) << "for the file that is no report";
    EXPECT_EQ(rig.list.count(), 2);
    EXPECT_EQ(rig.Shown("LibFileEdit", "SurrFileEdit", "CalFileEdit"),
              "|tqwvoa42.lib|voais42.ist|voa0516.cal");
    EXPECT_THAT(rig.Shown("LabBlankEdit", "CalibEdit", "CheckCalEdit"),
                testing::MatchesRegex(".*vblk01.prn.*voa0516.cal.*vstd050c.check"));

    rig.list.setFocus();
    rig.Type("\r");
    EXPECT_THAT(rig.Recorded(), ElementsAre("vblk01.prn", "za101.prn", "za102.prn"));
    EXPECT_FALSE(rig.dialog.isVisible());
    rig.Open();
    rig.Choose("AddButton", {"VHBLK01.PRN"});
    EXPECT_THAT(rig.Recorded(), ElementsAre("vblk01.prn", "vhblk01.prn", "za101.prn", "za102.prn"));
    rig.Enter("CheckCalEdit", "C:\\A;.CHECK");
    EXPECT_EQ(rig.form.Batch().Files.CheckCal, "C:\\A.CHECK") << "typed, it is taken as it is";
}

TEST(FilesDlg, TakesTheReportsOfADrag) {
    for (const auto& [name, taken] : {std::pair("ZA101.PRN", true), {"%FF.prn", false}}) {
        FilesRig rig;
        QMimeData files;
        files.setUrls({QUrl("http://laboratory/ZA103.PRN"),
                       QUrl("file://" + QString::fromStdString(Example(name)))});
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(rig.list.viewport(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({9, 9}, Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(rig.list.viewport(), &drop);
        QTest::qWait(0);
        EXPECT_EQ(rig.list.count(), taken ? 1 : 0);
        EXPECT_EQ(rig.log.TakeTexts().size(), taken ? 0U : 1U);
    }
}

TEST(FilesDlg, StartsEachChoiceWhereItsKindOfFileWasLast) {
    const std::tuple<const char*, FileKind, const char*> cases[] = {
        {"BrowseLabBlank", FileKind::kQuantReport, "/reports"},
        {"AddButton", FileKind::kQuantReport, "/reports"},
        {"BrowseCalibButton", FileKind::kCalibration, "/calibrations"},
        {"BrowseChkCalButton", FileKind::kCheckReport, "/reports"}};
    for (const auto& [button, kind, directory] : cases) {
        SCOPED_TRACE(button);
        FilesRig rig;
        rig.form.Flags().Form8DataReady = true;
        rig.chooser.answers = {{"/new/x"}};
        rig.Click(button);
        EXPECT_FALSE(rig.form.Flags().Form8DataReady);
        const OpenRequest& request = rig.chooser.opened.back();
        EXPECT_TRUE(request.kind == kind && request.directory == directory);
        EXPECT_EQ(request.multiSelect, button == std::string("AddButton"));
        EXPECT_THAT(rig.Read("QFRpaths.txt"), HasSubstr("/new\n"));
    }
}

TEST(FilesDlg, DeletesTheSelectedReportsAndTheirRecords) {
    FilesRig rig;
    rig.Choose("BrowseLabBlank", {"VBLK01.PRN"});
    rig.Choose("AddButton", {"ZA101.PRN", "ZA102.PRN", "ZA103.PRN"});
    rig.Type("\33");  // takes the files over as OK does
    rig.Open();
    for (const int row : {0, 2}) {
        QTest::mouseClick(rig.list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          rig.list.visualItemRect(rig.list.item(row)).center());
    }
    rig.Press(Qt::Key_Delete);
    EXPECT_THAT(rig.Recorded(), ElementsAre("vblk01.prn", "za102.prn"));
    rig.Click("DeleteButton");
    EXPECT_EQ(rig.list.count(), 1) << "nothing is selected";
}

TEST(FilesDlg, ClearsAllAfterOfferingToSave) {
    FilesRig rig;
    rig.Click("ClearAllButton");
    EXPECT_THAT(rig.log.shown, IsEmpty()) << "nothing to save yet";

    rig.Choose("AddButton", {"ZA101.PRN"});
    rig.dialog.close();
    rig.Open();
    rig.form.Flags() = {true, true, true};
    rig.form.Entries().Tune.Abundances[0] = "18.2";
    auto& labName = *rig.Find<QWidget>("TForm1Header").findChild<QLineEdit*>("Edit1");
    labName.setText("Fairhaven");
    rig.log.answers = {true};
    rig.chooser.answers = {{rig.Path("kept.qff")}};
    rig.Click("ClearAllButton");
    EXPECT_THAT(rig.Read("kept.qff"), HasSubstr("za101.prn"));
    EXPECT_EQ(rig.list.count(), 0);
    EXPECT_EQ(rig.Shown("LibFileEdit"), "|");
    EXPECT_FALSE(rig.form.Batch().SampleList || rig.form.Flags().InitCalEntered);
    EXPECT_EQ(rig.form.Entries().Tune.Abundances[0], "");
    EXPECT_EQ(labName.text(), "");
}

}  // namespace
}  // namespace qfr::test
