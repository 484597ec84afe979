#include "dialogs/Form1Header.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

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
    EXPECT_EQ(rig.Stored(0, HeaderField::kGcColumn), "Vocol");
    EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "  /  /       :  ");

    rig.Press(Qt::Key_Down);
    EXPECT_EQ(rig.Shown("ZOVComboBox", "LabComboBox", "FileComboBox", "Edit2"),
              "|ZA101|L1|s1.prn|C-17");
    EXPECT_EQ(rig.Stored(1, HeaderField::kContract), "") << "not before a control is left";
    rig.Get("Edit2").setFocus();
    rig.Type("\t");
    EXPECT_EQ(rig.Stored(1, HeaderField::kContract), "C-17");
    EXPECT_EQ(rig.Stored(1, HeaderField::kLabName), "");

    rig.Type("&x");
    EXPECT_EQ(rig.Stored(1, HeaderField::kLabName), "Fairhaven");
    EXPECT_FALSE(rig.dialog.isVisible());
    EXPECT_TRUE(rig.form.isVisible());
    rig.Open();
    EXPECT_EQ(rig.Get<QComboBox>("FileComboBox").currentIndex(), 0);
}

TEST(Form1Header, KeepsTheDropDownsInStepWithWhatIsTyped) {
    HeaderRig rig;
    rig.Enter("ZOVComboBox", "ZA102\r");  // as another sample's
    EXPECT_EQ(rig.Get<QComboBox>("FileComboBox").currentIndex(), 0);
    EXPECT_EQ(rig.Get<QComboBox>("ZOVComboBox").itemText(0), "ZA102");
    rig.Type("\t");
    EXPECT_EQ(rig.Stored(0, HeaderField::kZovSampleNo), "ZA102");

    rig.Get("FileComboBox").setFocus();
    rig.Type("s2");
    EXPECT_EQ(rig.Get<QComboBox>("FileComboBox").currentIndex(), 0) << "typing chooses no file";
    rig.Press(Qt::Key_Down);
    EXPECT_EQ(rig.Get<QComboBox>("FileComboBox").currentIndex(), 1);
    EXPECT_EQ(rig.Shown("LabComboBox"), "|L1");
}

TEST(Form1Header, GoesThroughItsValuesInTheOrderOfTheForm) {
    HeaderRig rig;
    SampleHeader typed;
    rig.Get("ZOVComboBox").setFocus();
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        const HeaderField field = HeaderFieldAt(number);
        const bool date =
            field == HeaderField::kDateReceived || field == HeaderField::kDateAnalyzed;
        typed[field] = date ? "01/02/2005 03:04" : "x" + std::to_string(number);
        rig.Enter(rig.Focus(), date ? "010220050304" : typed[field]);
        rig.Type("\t");
    }
    EXPECT_EQ(rig.Focus(), "Button2");
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        EXPECT_EQ(rig.Stored(0, HeaderFieldAt(number)), typed[HeaderFieldAt(number)]) << number;
    }
    EXPECT_TRUE(rig.log.shown.empty());
}

TEST(Form1Header, HoldsTheUserAtAWrongDate) {
    const char* const keys[] = {"\t", "&x", "&p", "\33"};
    const char* const clicked[] = {"Edit1", "MaskEdit2", "ZOVComboBox", "OkButton", "PrintButton"};
    std::vector<std::function<void(HeaderRig&)>> ways = {
        [](HeaderRig& rig) { rig.dialog.close(); }};
    for (const char* const key : keys) {
        ways.emplace_back([key](HeaderRig& rig) { rig.Type(key); });
    }
    for (const char* const control : clicked) {
        ways.emplace_back([control](HeaderRig& rig) { rig.Click(control); });
    }
    for (std::size_t way = 0; way < ways.size(); ++way) {
        SCOPED_TRACE(way);
        HeaderRig rig;
        rig.Get("MaskEdit1").setFocus();
        rig.Use("\t", "", "MaskEdit2");
        EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "") << "left empty";
        rig.Enter("MaskEdit1", "023020051010");
        ways[way](rig);
        rig.Use("", "The entry is not a correct date.", "MaskEdit1");
        EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "");
        EXPECT_TRUE(rig.dialog.isVisible());
        EXPECT_TRUE(rig.sink.jobs.empty());

        rig.Enter("MaskEdit1", "022820051010\t");
        EXPECT_EQ(rig.Stored(0, HeaderField::kDateReceived), "02/28/2005 10:10");
    }
}

TEST(Form1Header, KeepsTheLaboratorysValuesInTwoFiles) {
    using enum HeaderField;
    // The buttons that write and read a file, and its lines.
    const std::tuple<const char*, const char*, std::vector<HeaderField>> files[] = {
        {"Button3",
         "Button4",
         {kLabName, kContract, kLabCode, kCaseNo, kModRefNo, kSdgNo, kGcColumn, kColumnId,
          kColumnLength, kDilutionFactor, kSoilExtractVolume, kSoilAliquotVolume, kPurgeVolume}},
        {"Button1",
         "Button2",
         {kLabName, kLabCode, kContract, kModRefNo, kGcColumn, kColumnId, kColumnLength}}};
    for (const auto& [write, read, fields] : files) {
        HeaderRig rig;
        SampleHeader others = CompleteRecord("other").Header;
        others[kDateReceived] = others[kDateAnalyzed] = "01/02/2005 03:04";
        SampleHeader header = others;
        std::string lines;
        for (const HeaderField field : fields) {
            header[field] = "line " + std::to_string(lines.size());
            lines += header[field] + "\n";
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
        for (int number = 1; number <= SampleHeader::kCount; ++number) {
            EXPECT_EQ(rig.Stored(0, HeaderFieldAt(number)), header[HeaderFieldAt(number)]) << read;
        }
        if (write == std::string("Button1")) {
            EXPECT_EQ(rig.chooser.saved.at(0).kind, SaveKind::kLaboratoryFile);
            EXPECT_EQ(rig.chooser.saved.at(0).directory, "/texts");
            EXPECT_EQ(rig.chooser.opened.at(0).kind, FileKind::kText);
        }
    }
}

TEST(Form1Header, PrintsTheSampleShownOnTheFormOfItsMode) {
    const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
        {"^1", "Form 1 Header", "Edit7", "", "Form 1 VBLK01"},
        {"^t", "Form 1 TIC Header", "Edit1", "Tentatively Identified Compound Input",
         "Form 1 TIC VBLK01"}};
    HeaderRig rig;
    rig.Samples()[0].TicList.emplace(1);
    rig.form.SetPendingFocus(HeaderField::kSdgNo);
    for (const auto& [key, title, wanted, tics, job] : cases) {
        rig.dialog.close();
        rig.Open(key);
        EXPECT_EQ(rig.dialog.windowTitle().toStdString(), title);
        EXPECT_EQ(rig.Focus(), wanted);
        EXPECT_EQ(rig.Opened([&] { rig.Get<QAbstractButton>("EnterButton").click(); }), tics);
        rig.Face(rig.dialog);
        rig.Enter("Edit2", "C-99\r");
        EXPECT_TRUE(rig.dialog.isVisible()) << "Enter is for buttons";
        rig.Type("&p");
        EXPECT_EQ(rig.sink.jobs.back().title, job);
        const JobPage& page = rig.sink.jobs.back().pages[0];
        EXPECT_TRUE(HasText(page, "C-99"));
        rig.Click("Button5");
    }
    EXPECT_EQ(rig.sink.jobs.size(), 2U);
    EXPECT_EQ(rig.setups, 1);
    EXPECT_THAT(rig.topics, testing::ElementsAre(110, 420, 120));
    rig.Get("OkButton").setFocus();
    rig.Type("\r");
    EXPECT_FALSE(rig.dialog.isVisible());
}

}  // namespace
}  // namespace qfr::test
