#include <gmock/gmock.h>

#include "dialogs/Form1Header.h"
#include "platform/qt/MaskEdit.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const char* const kWrongDate = "The entry is not a correct date.";

// The dialog on a blank and two samples; only the blank's header is typed.
struct HeaderRig : WindowRig {
    HeaderRig() {
        SampleListType& samples = form.Batch().SampleList.emplace(3);
        form.Batch().Files.QFiles = {"c:\\data\\s1.prn", "c:\\data\\s2.prn"};
        const char* const names[] = {"VBLK01", "ZA101", "ZA102"};
        for (std::size_t i = 0; i < samples.size(); ++i) {
            samples[i].FileName = "c:\\data\\s" + std::to_string(i) + ".prn";
            samples[i].Header[HeaderField::kZovSampleNo] = names[i];
            samples[i].Header[HeaderField::kLabSampleId] = "L" + std::to_string(i);
        }
        samples[0].FileName = Example("VBLK01.PRN");
        samples[0].Header[HeaderField::kLabName] = "Fairhaven";
        Open();
    }
    void Open() {
        Await(form);
        QTest::keyClick(&form, Qt::Key_1, Qt::ControlModifier);
        Await(dialog);
    }
    template <typename Control = QLineEdit>
    Control& Get(const char* name) {
        return In<Control>(dialog, name);
    }
    void Type(const char* name, const char* text) {
        auto& edit = Get(name);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
    }
    void TypeDate(const char* name, const char* digits) {
        auto& edit = Get(name);
        edit.setFocus();
        QTest::keyClick(&edit, Qt::Key_Home);
        QTest::keyClicks(&edit, digits);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(dialog.focusWidget(), key, modifiers);
        QTest::qWait(
            modifiers == Qt::AltModifier ? 150 : 0);  // a mnemonic presses its button for a while
    }
    std::string Stored(std::size_t record, HeaderField field) {
        return Samples()[record].Header[field];
    }
    std::string Text(const char* box) { return Get<QComboBox>(box).currentText().toStdString(); }

    TForm1Header& dialog = Header();
};

TEST(Form1Header, CarriesValuesOverToTheNextSample) {
    HeaderRig rig;
    EXPECT_TRUE(rig.Get("Edit1").hasFocus());
    EXPECT_EQ(rig.Get("Edit1").text(), "Fairhaven");
    EXPECT_EQ(rig.Get("Edit16").text(), "Vocol") << "an empty value leaves the text";
    rig.Type("Edit2", "C-17");
    rig.Get<QComboBox>("ZOVComboBox").setFocus();
    EXPECT_EQ(rig.Stored(0, HeaderField::kContract), "C-17");
    EXPECT_EQ(rig.Stored(0, HeaderField::kGcColumn), "Vocol");
    EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "  /  /       :  ");

    rig.Press(Qt::Key_Down);
    EXPECT_EQ(rig.Text("ZOVComboBox") + rig.Text("LabComboBox") + rig.Text("FileComboBox"),
              "ZA101L1s1.prn");
    EXPECT_EQ(rig.Get("Edit2").text(), "C-17");
    EXPECT_EQ(rig.Stored(1, HeaderField::kContract), "") << "not before a control is left";
    rig.Get("Edit2").setFocus();
    rig.Press(Qt::Key_Tab);
    EXPECT_EQ(rig.Stored(1, HeaderField::kContract), "C-17");
    EXPECT_EQ(rig.Stored(1, HeaderField::kLabName), "");

    rig.Press(Qt::Key_X, Qt::AltModifier);
    EXPECT_EQ(rig.Stored(1, HeaderField::kLabName), "Fairhaven");
    EXPECT_FALSE(rig.dialog.isVisible());
    EXPECT_TRUE(rig.form.isVisible());
    rig.Open();
    EXPECT_EQ(rig.dialog.CurrentRecord(), 0U);
}

TEST(Form1Header, KeepsTheDropDownsInStepWithWhatIsTyped) {
    HeaderRig rig;
    auto& box = rig.Get<QComboBox>("ZOVComboBox");
    box.setFocus();
    box.lineEdit()->selectAll();
    QTest::keyClicks(&box, "ZA102");  // as another sample's
    rig.Press(Qt::Key_Return);
    EXPECT_EQ(rig.dialog.CurrentRecord(), 0U);
    EXPECT_EQ(box.itemText(0), "ZA102");
    rig.Press(Qt::Key_Tab);
    EXPECT_EQ(rig.Stored(0, HeaderField::kZovSampleNo), "ZA102");

    rig.Get<QComboBox>("FileComboBox").setFocus();
    QTest::keyClicks(rig.dialog.focusWidget(), "s2");
    EXPECT_EQ(rig.dialog.CurrentRecord(), 0U) << "typing chooses no file";
    rig.Press(Qt::Key_Down);
    EXPECT_EQ(rig.dialog.CurrentRecord(), 1U);
    EXPECT_EQ(rig.Text("LabComboBox"), "L1");
}

TEST(Form1Header, GoesThroughItsValuesInTheOrderOfTheForm) {
    HeaderRig rig;
    std::vector<std::string> visited;
    rig.Get<QComboBox>("ZOVComboBox").setFocus();
    for (int i = 0; i < 33; ++i) {
        visited.push_back(rig.dialog.focusWidget()->objectName().toStdString());
        rig.Press(Qt::Key_Tab);
    }
    EXPECT_THAT(
        visited,
        ElementsAre("ZOVComboBox", "LabComboBox", "Edit1", "Edit2", "Edit4", "Edit5", "Edit6",
                    "Edit7", "ComboBox2", "Edit10", "ComboBox1", "Edit9", "ComboBox3", "MaskEdit1",
                    "MaskEdit2", "Edit13", "Edit16", "Edit17", "Edit14", "Edit18", "Edit15",
                    "Edit19", "ComboBox4", "Edit3", "ComboBox5", "Edit8", "Button2", "PrintButton",
                    "Button3", "Button4", "Button5", "OkButton", "FileComboBox"));
}

TEST(Form1Header, HoldsTheUserAtAWrongDate) {
    const std::function<void(HeaderRig&)> ways[] = {
        [](HeaderRig& rig) { rig.Press(Qt::Key_Tab); },
        [](HeaderRig& rig) { rig.TypeDate("MaskEdit2", "132520051010"); },
        [](HeaderRig& rig) { WindowRig::Click(rig.dialog, "Edit1"); },
        [](HeaderRig& rig) { WindowRig::Click(rig.dialog, "ZOVComboBox"); },
        [](HeaderRig& rig) { WindowRig::Click(rig.dialog, "OkButton"); },
        [](HeaderRig& rig) { WindowRig::Click(rig.dialog, "PrintButton"); },
        [](HeaderRig& rig) { rig.Press(Qt::Key_X, Qt::AltModifier); },
        [](HeaderRig& rig) { rig.Press(Qt::Key_P, Qt::AltModifier); },
        [](HeaderRig& rig) { rig.Press(Qt::Key_Escape); },
        [](HeaderRig& rig) { rig.dialog.close(); },
    };
    for (std::size_t way = 0; way < std::size(ways); ++way) {
        SCOPED_TRACE(way);
        HeaderRig rig;
        rig.TypeDate("MaskEdit1", "023020051010");
        ways[way](rig);
        QTest::qWait(0);
        EXPECT_THAT(rig.log.TakeTexts(), ElementsAre(kWrongDate));
        EXPECT_TRUE(rig.Get<MaskEdit>("MaskEdit1").hasFocus());
        EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "");
        EXPECT_TRUE(rig.dialog.isVisible());
        EXPECT_THAT(rig.sink.jobs, IsEmpty());

        rig.TypeDate("MaskEdit1", "022820051010");
        rig.Press(Qt::Key_Tab);
        EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "02/28/2005 10:10");
    }
}

TEST(Form1Header, AcceptsADateThatIsLeftEmpty) {
    HeaderRig rig;
    rig.Get("MaskEdit1").setFocus();
    rig.Press(Qt::Key_Tab);
    QTest::qWait(0);
    EXPECT_THAT(rig.log.shown, IsEmpty());
    EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "");
}

TEST(Form1Header, FollowsTheMatrix) {
    HeaderRig rig;
    const auto values = [&rig] {
        return (rig.Get("Edit13").text() + "|" + rig.Get("Edit18").text() + "|" +
                rig.Get("Edit15").text())
            .toStdString();
    };
    EXPECT_EQ(values(), "N/A|N/A|N/A");
    auto& matrix = rig.Get<QComboBox>("ComboBox2");
    const auto type = [&matrix](const char* text) {
        matrix.setFocus();
        matrix.lineEdit()->selectAll();
        QTest::keyClicks(&matrix, text);
    };
    type("soil");
    EXPECT_EQ(matrix.currentText(), "soil");
    EXPECT_EQ(values(), "N/A|N/A|N/A");
    type("SOIL");
    EXPECT_EQ(values(), "0|0|0");
    rig.Type("Edit13", "12");
    matrix.setFocus();
    rig.Press(Qt::Key_Down);
    EXPECT_EQ(matrix.currentText(), "SED");
    EXPECT_EQ(values(), "12|N/A|N/A");
    rig.Press(Qt::Key_Down);
    EXPECT_EQ(values(), "N/A|N/A|N/A");
}

TEST(Form1Header, StartsAtTheFieldThatIsWanted) {
    HeaderRig rig;
    rig.dialog.close();
    rig.form.SetPendingFocus(HeaderField::kSdgNo);
    rig.Open();
    EXPECT_TRUE(rig.Get("Edit7").hasFocus());
    rig.dialog.close();
    rig.Open();
    EXPECT_TRUE(rig.Get("Edit1").hasFocus());
}

TEST(Form1Header, PrintsTheSampleShownWithWhatWasTyped) {
    HeaderRig rig;
    rig.Type("Edit2", "C-99");
    rig.Press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(rig.setups, 1);
    ASSERT_EQ(rig.sink.jobs.size(), 1U);
    std::vector<std::string> texts;
    for (const PageItem& item : rig.sink.jobs[0].pages[0].items) {
        if (const auto* const text = std::get_if<TextItem>(&item)) {
            texts.push_back(text->text);
        }
    }
    EXPECT_THAT(texts, AllOf(Contains("VBLK01"), Contains("C-99"), Contains("Fairhaven")));
}

TEST(Form1Header, TakesEnterOnButtonsOnly) {
    HeaderRig rig;
    rig.Press(Qt::Key_Return);
    EXPECT_TRUE(rig.dialog.isVisible());
    EXPECT_THAT(rig.sink.jobs, IsEmpty());
    rig.Get<QWidget>("OkButton").setFocus();
    rig.Press(Qt::Key_Return);
    EXPECT_FALSE(rig.dialog.isVisible());
}

TEST(Form1Header, KeepsTheLaboratorysDefaults) {
    HeaderRig rig;
    WindowRig::Click(rig.dialog, "Button4");
    ASSERT_EQ(rig.log.shown.size(), 1U);
    EXPECT_EQ(rig.log.shown[0].title, "FileError");
    EXPECT_TRUE(rig.log.shown[0].offerCancel);

    WindowRig::Click(rig.dialog, "Button3");
    EXPECT_EQ(rig.Read("DefaultInfo.txt"),
              "Fairhaven\nContract#\nXXX\ncase001\nMod00\nNo123\nVocol\n.3\n30\n1\nN/A\nN/A\n5\n");
    rig.Write("DefaultInfo.txt", "Other Lab\n  C2  \n");
    WindowRig::Click(rig.dialog, "Button4");
    EXPECT_EQ(rig.Get("Edit1").text(), "Other Lab");
    EXPECT_EQ(rig.Get("Edit2").text(), "C2");
    EXPECT_EQ(rig.Get("Edit4").text(), "XXX") << "the file ends before it";

    rig.chooser.answers = {{Example("Laboratory.txt")}};
    rig.Press(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(rig.Get("Edit4").text(), "FHAV");
    EXPECT_EQ(rig.Get("Edit17").text(), "0.25");
    EXPECT_EQ(rig.chooser.opened[0].filter, 5);
    EXPECT_EQ(rig.chooser.opened[0].directory, "/texts");
}

TEST(Form1Header, ShowsTicsInTheirModeOnly) {
    HeaderRig rig;
    for (const int mode : {kFormITic, kFormIVoa}) {
        rig.dialog.Open(mode);
        EXPECT_EQ(rig.dialog.windowTitle(),
                  mode == kFormITic ? "Form 1 TIC Header" : "Form 1 Header");
        EXPECT_EQ(rig.Get<QWidget>("EnterButton").isVisible(), mode == kFormITic);
        EXPECT_FALSE(rig.Get<QWidget>("Button1").isVisible());
        WindowRig::Click(rig.dialog, "Button5");
    }
    EXPECT_THAT(rig.topics, ElementsAre(120, 110));
}

}  // namespace
}  // namespace qfr::test
