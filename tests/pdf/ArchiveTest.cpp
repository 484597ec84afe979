// The rules of PDF/A-2u that concern files like these, one by one, on the written objects.
#include <hb.h>
#include <set>

#include "platform/PaintOrder.h"
#include "tests/pdf/PdfSupport.h"

namespace qfr::test {
namespace {

using namespace ::testing;
using Object = QPDFObjectHandle;

std::string DataOf(Object stream) {
    const auto data = stream.getStreamData(qpdf_dl_generalized);
    return {reinterpret_cast<const char*>(data->getBuffer()), data->getSize()};
}

// The codes that a font's ToUnicode map holds, with the first unit of what they stand for.
std::map<unsigned, unsigned> UnicodeMapOf(Object font) {
    static const std::regex kPattern("<([0-9A-F]+)> <([0-9A-F]{4,8})>\n");
    std::string map = DataOf(font.getKey("/ToUnicode"));
    map.erase(0, map.find("endcodespacerange"));
    std::map<unsigned, unsigned> codes;
    for (std::sregex_iterator match(map.begin(), map.end(), kPattern), end; match != end; ++match) {
        codes[static_cast<unsigned>(std::stoul((*match)[1], nullptr, 16))] =
            static_cast<unsigned>(std::stoul((*match)[2].str().substr(0, 4), nullptr, 16));
    }
    return codes;
}

// Takes what a page draws.
class Operators : public Object::ParserCallbacks {
  public:
    void handleObject(Object object, std::size_t, std::size_t) override {
        if (!object.isOperator()) {
            operands_.push_back(object);
            return;
        }
        const std::string name = object.getOperatorValue();
        names.insert(name);
        if (name == "Tf") {
            font_ = operands_.at(0).getName();
        } else if (name == "Tj") {
            EXPECT_LE(operands_.at(0).getStringValue().size(), 32'767U);
            texts[font_] += operands_.at(0).getStringValue();
        } else if (name == "BT") {
            x_ = 0;
            y_ = 0;
        } else if (name == "Td") {
            x_ += operands_.at(0).getIntValueAsInt();
            y_ += operands_.at(1).getIntValueAsInt();
            places.push_back("text " + std::to_string(x_) + " " + std::to_string(y_));
        } else if (name == "cm" || name == "w" || name == "m" || name == "l" || name == "re") {
            std::string place = name;
            for (Object& operand : operands_) {
                place += " " + operand.unparse();
            }
            places.push_back(place);
        }
        operands_.clear();
    }
    void handleEOF() override {}

    std::set<std::string> names;
    std::map<std::string, std::string> texts;  // all codes, by font
    std::vector<std::string> places;           // of texts, rules and cells, in order

  private:
    std::vector<Object> operands_;
    std::string font_;
    int x_ = 0;  // where the last text begins
    int y_ = 0;
};

// The same for a page that is not turned, from its items: pixels at kResolution, upwards.
std::vector<std::string> PlacesOf(const JobPage& page) {
    std::vector<std::string> places = {"cm 0.12 0 0 0.12 0 0"};
    const auto add = [&](const char* what, auto... numbers) {
        places.emplace_back(what);
        ((places.back() += " " + std::to_string(numbers)), ...);
    };
    const std::vector<PaintedItem> painted = PaintOrderOf(page);
    int pen = -1;
    for (std::size_t i = 0; i < page.items.size(); ++i) {
        if (const auto* const rule = std::get_if<RuleItem>(&page.items[i])) {
            if (std::exchange(pen, rule->penWidth) != rule->penWidth) {
                add("w", rule->penWidth);
            }
            add("m", rule->x1, page.height - rule->y1);
            add("l", rule->x2, page.height - rule->y2);
            continue;
        }
        const auto& text = std::get<TextItem>(page.items[i]);
        if (painted[i].coversEarlier && !painted[i].hidden) {
            add("re", text.x, page.height - text.y - text.height, text.width, text.height);
        }
        if (!painted[i].hidden) {
            add("text", text.x, page.height - text.y - FormsTypeface().Ascent(text.size));
        }
    }
    return places;
}

// The embedded file of a typeface.
class EmbeddedFont {
  public:
    explicit EmbeddedFont(Object descriptor) : data_(DataOf(descriptor.getKey("/FontFile2"))) {
        hb_blob_t* const blob = hb_blob_create(data_.data(), static_cast<unsigned>(data_.size()),
                                               HB_MEMORY_MODE_READONLY, nullptr, nullptr);
        hb_face_t* const face = hb_face_create(blob, 0);
        font_ = hb_font_create(face);
        glyphs = hb_face_get_glyph_count(face);
        unitsPerEm_ = hb_face_get_upem(face);
        hb_face_destroy(face);
        hb_blob_destroy(blob);
    }
    ~EmbeddedFont() { hb_font_destroy(font_); }
    EmbeddedFont(const EmbeddedFont&) = delete;
    EmbeddedFont& operator=(const EmbeddedFont&) = delete;

    unsigned GlyphOf(unsigned character) const {
        hb_codepoint_t glyph = 0;
        hb_font_get_nominal_glyph(font_, character, &glyph);
        return glyph;
    }
    // Thousandths of an em.
    double WidthOf(unsigned glyph) const {
        return hb_font_get_glyph_h_advance(font_, glyph) * 1000.0 / unitsPerEm_;
    }

    unsigned glyphs = 0;

  private:
    std::string data_;
    hb_font_t* font_ = nullptr;
    unsigned unitsPerEm_ = 1;
};

// Every code that the pages use of the font stands for a text and for a glyph with ink or width of
// its own, as wide as the document says.
void CheckFont(Object font, const std::string& text) {
    const std::map<unsigned, unsigned> unicode = UnicodeMapOf(font);
    for (const auto& [code, character] : unicode) {
        EXPECT_TRUE(character != 0 && character != 0xFEFF && character != 0xFFFE) << code;
    }
    const std::string kind = font.getKey("/Subtype").getName();
    const bool wide = kind == "/Type0";
    std::set<unsigned> codes;
    for (std::size_t i = 0; i < text.size(); i += wide ? 2 : 1) {
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text.at(at)); };
        codes.insert(wide ? byte(i) * 256U + byte(i + 1) : byte(i));
    }
    Object described = wide ? font.getKey("/DescendantFonts").getArrayItem(0) : font;
    std::optional<EmbeddedFont> embedded;
    if (kind != "/Type3") {
        Object descriptor = described.getKey("/FontDescriptor");
        embedded.emplace(descriptor);
        EXPECT_GT(embedded->glyphs, 1U) << "the font's file is used";
        EXPECT_EQ(descriptor.getKey("/FontName").getName(),
                  described.getKey("/BaseFont").getName());
        EXPECT_TRUE(std::regex_match(descriptor.getKey("/FontName").getName(),
                                     std::regex("/[A-Z]{6}[+].*")));
        const bool symbolic = (descriptor.getKey("/Flags").getIntValue() & 4) != 0;
        EXPECT_EQ(symbolic, !font.hasKey("/Encoding") || wide);
    }
    for (const unsigned code : codes) {
        SCOPED_TRACE(code);
        ASSERT_TRUE(unicode.contains(code));
        if (wide) {
            EXPECT_NE(code, 0U);
            const std::string glyphs = DataOf(described.getKey("/CIDToGIDMap"));
            const unsigned glyph = static_cast<unsigned char>(glyphs.at(2 * code)) * 256U +
                                   static_cast<unsigned char>(glyphs.at(2 * code + 1));
            EXPECT_TRUE(glyph > 0 && glyph < embedded->glyphs);
            EXPECT_EQ(glyph, embedded->GlyphOf(unicode.at(code)));
            Object widths = described.getKey("/W").getArrayItem(1);
            EXPECT_NEAR(widths.getArrayItem(static_cast<int>(code) - 1).getNumericValue(),
                        embedded->WidthOf(glyph), 0.001);
            continue;
        }
        const auto place = static_cast<int>(code) - font.getKey("/FirstChar").getIntValueAsInt();
        const double width = font.getKey("/Widths").getArrayItem(place).getNumericValue();
        if (kind == "/TrueType") {
            EXPECT_EQ(font.getKey("/Encoding").getName(), "/WinAnsiEncoding");
            const unsigned glyph = embedded->GlyphOf(unicode.at(code));
            EXPECT_NE(glyph, 0U);
            EXPECT_NEAR(width, embedded->WidthOf(glyph), 0.001);
        } else {
            Object names = font.getKey("/Encoding").getKey("/Differences");
            const std::string name = names.getArrayItem(place + 1).getName();
            const std::string drawn = DataOf(font.getKey("/CharProcs").getKey(name));
            EXPECT_NEAR(width, std::stod(drawn), 0.001);
            EXPECT_THAT(drawn, HasSubstr(" d1 "));
        }
    }
}

void CheckPages(QPDF& document, const std::vector<PrintJob>& jobs) {
    std::map<std::string, std::string> texts;
    Object fonts;
    std::vector<const JobPage*> printed;
    for (const PrintJob& job : jobs) {
        for (const JobPage& page : job.pages) {
            printed.push_back(&page);
        }
    }
    auto next = printed.begin();
    for (QPDFPageObjectHelper page : QPDFPageDocumentHelper(document).getAllPages()) {
        Object dictionary = page.getObjectHandle();
        EXPECT_TRUE(dictionary.hasKey("/Resources")) << "of its own, not of the page tree";
        for (const std::string& key : dictionary.getKeys()) {
            EXPECT_TRUE(
                std::regex_match(key, std::regex("/(Contents|MediaBox|Parent|Resources|Type)")))
                << key;
        }
        fonts = dictionary.getKey("/Resources").getKey("/Font");
        EXPECT_EQ(dictionary.getKey("/Resources").getKeys(), std::set<std::string>{"/Font"});
        Operators drawn;
        page.parseContents(&drawn);
        for (const std::string& name : drawn.names) {
            EXPECT_THAT((std::vector<std::string>{"cm", "J", "w", "m", "l", "S", "g", "re", "f",
                                                  "BT", "ET", "Td", "Tf", "Tj"}),
                        testing::Contains(name));
        }
        for (const auto& [font, text] : drawn.texts) {
            texts[font] += text;
        }
        ASSERT_NE(next, printed.end());
        EXPECT_EQ(drawn.places, PlacesOf(**next++));
    }
    EXPECT_EQ(next, printed.end());
    for (const auto& [font, text] : texts) {
        SCOPED_TRACE(font);
        CheckFont(fonts.getKey(font), text);
    }
}

void CheckObject(Object object) {
    Object dictionary = object.isStream() ? object.getDict() : object;
    if (object.isStream()) {
        for (const char* const external : {"/F", "/FFilter", "/FDecodeParms"}) {
            EXPECT_FALSE(dictionary.hasKey(external)) << "a stream outside the file";
        }
        Object filter = dictionary.getKey("/Filter");
        EXPECT_TRUE(filter.isNull() || filter.isNameAndEquals("/FlateDecode"));
    }
    std::vector<Object> parts;
    if (dictionary.isArray()) {
        parts = dictionary.getArrayAsVector();
    } else if (dictionary.isDictionary()) {
        for (const auto& [key, value] : dictionary.getDictAsMap()) {
            EXPECT_FALSE(std::regex_match(
                key, std::regex("/(AA?|JS|OpenAction|EF|SMask|Group|ExtGState|Encrypt)")))
                << key;
            parts.push_back(value);
        }
    } else if (object.isString()) {
        EXPECT_LE(object.getStringValue().size(), 32'767U);
    }
    for (Object& part : parts) {
        if (!part.isIndirect()) {
            CheckObject(part);
        }
    }
}

void CheckObjects(QPDF& document) {
    for (const Object& object : document.getAllObjects()) {
        CheckObject(object);
    }
    CheckObject(document.getTrailer());
}

void CheckIntentAndMetadata(QPDF& document, const std::string& title) {
    Object root = document.getRoot();
    Object intent = root.getKey("/OutputIntents").getArrayItem(0);
    EXPECT_EQ(intent.getKey("/S").getName(), "/GTS_PDFA1");
    Object profile = intent.getKey("/DestOutputProfile");
    EXPECT_EQ(profile.getDict().getKey("/N").getIntValue(), 1);
    const std::string bytes = DataOf(profile);
    EXPECT_EQ(bytes.size() % 4, 0U);
    EXPECT_EQ(bytes.substr(2, 2), (std::string{static_cast<char>(bytes.size() >> 8U),
                                               static_cast<char>(bytes.size())}));
    EXPECT_EQ(bytes.substr(12, 12), "mntrGRAYXYZ ");
    EXPECT_EQ(bytes.substr(36, 4), "acsp");

    Object metadata = root.getKey("/Metadata");
    EXPECT_FALSE(metadata.getDict().hasKey("/Filter"));
    const std::string xml = DataOf(metadata);
    EXPECT_THAT(xml, Not(HasSubstr("\uFFFF"))) << "no character of XML";
    EXPECT_THAT(xml, HasSubstr("<pdfaid:part>2</pdfaid:part>"));
    EXPECT_THAT(xml, HasSubstr("<pdfaid:conformance>U</pdfaid:conformance>"));
    Object info = document.getTrailer().getKey("/Info");
    EXPECT_EQ(info.getKey("/Title").getUTF8Value(), title);
    EXPECT_THAT(xml, HasSubstr("<pdf:Producer>" + info.getKey("/Producer").getUTF8Value() + "<"));
    EXPECT_THAT(xml, HasSubstr("<xmp:CreatorTool>" + info.getKey("/Creator").getUTF8Value() + "<"));
    const std::string date = std::regex_replace(
        info.getKey("/CreationDate").getUTF8Value(),
        std::regex("D:(....)(..)(..)(..)(..)(..)([+-]..)'(..)'"), "$1-$2-$3T$4:$5:$6$7:$8");
    EXPECT_THAT(xml, HasSubstr("<xmp:CreateDate>" + date + "</xmp:CreateDate>"));
    EXPECT_THAT(xml, HasSubstr("<xmp:ModifyDate>" + date + "</xmp:ModifyDate>"));
}

void CheckArchive(const std::vector<PrintJob>& jobs, const std::string& title,
                  const std::string& shownTitle) {
    const std::string pdf = PdfOf(jobs, title);
    EXPECT_EQ(pdf.substr(0, 9), "%PDF-1.7\n");
    EXPECT_EQ(pdf[9], '%');
    for (std::size_t i = 10; i < 14; ++i) {
        EXPECT_GT(static_cast<unsigned char>(pdf[i]), 127U) << "a file that is no text";
    }
    std::size_t streams = 0;
    for (std::size_t at = 0; (at = pdf.find("endstream", at)) != std::string::npos; ++at) {
        EXPECT_EQ(pdf[at - 1], '\n') << "behind a stream";
        ++streams;
    }
    EXPECT_GT(streams, jobs.size());
    ReadDocument document(pdf);
    EXPECT_EQ(document->getTrailer().getKey("/ID").getArrayNItems(), 2);
    EXPECT_FALSE(document->isEncrypted());
    CheckObjects(*document);
    CheckPages(*document, jobs);
    CheckIntentAndMetadata(*document, shownTitle);
    EXPECT_THAT(DescribedBy("qpdf --check", pdf), HasSubstr("No syntax or stream encoding errors"));
}

TEST(Archive, EveryApprovedPageIsFitForIt) {
    for (const ApprovedBatch& batch : ApprovedBatches()) {
        SCOPED_TRACE(batch.name);
        std::vector<PrintJob> jobs;
        PrintApproved(batch, FormsTypeface(), [&](const auto&, const auto& job, const auto&) {
            if (job) {
                jobs.push_back(*job);
            }
        });
        CheckArchive(jobs, batch.name, batch.name);
    }
}

TEST(Archive, HostileTextsAreFitForIt) {
    std::string everyByte;
    for (int byte = 1; byte < 256; ++byte) {
        everyByte += static_cast<char>(byte);
    }
    std::string manyCharacters;
    for (unsigned i = 0; i < 600; ++i) {  // U+E000 and so on: more than one drawn font holds
        manyCharacters +=
            {'\xEE', static_cast<char>(0x80 + i / 64), static_cast<char>(0x80 + i % 64)};
    }
    const std::string texts[] = {std::string(100'000, 'W'),
                                 everyByte,
                                 manyCharacters,
                                 "\u05e9\u05dc\u05d5\u05dd \u202eright to left\u202c \u0645\u0631",
                                 "\U0001F600\U0001F468\u200D\U0001F469 e\u0301 \uFEFF\uFFFE\uFFFF",
                                 "nbsp\u00a0shy\u00ad (()) \\ \\( \r\n\t",
                                 " "};
    std::vector<PageItem> items;
    for (const std::string& text : texts) {
        items.emplace_back(TextAt(0.5, 0.5 + static_cast<double>(items.size()), text));
    }
    for (int i = 0; i < 100'000; ++i) {
        items.emplace_back(TextAt(0.5 + i % 10 * 0.8, 0.01 * (i / 10 % 1000), std::to_string(i)));
    }
    items.emplace_back(RuleItem{-kFarthest, kFarthest, kFarthest, -kFarthest, 0});
    PrintJob job = JobOf(items);
    job.form = std::string(100'000, 'f') + "\uFFFF";
    CheckArchive({job}, "<&>\U0001F600\uFFFF\uFEFF", "<&>\U0001F600?\uFEFF");
    EXPECT_FALSE(FormsTypeface().TakeBoxes().empty());
}

TEST(Archive, TheSameBatchGivesTheSameBytes) {
    const auto print = [](const char* time, const char* zone) {
        ::setenv("SOURCE_DATE_EPOCH", time, 1);
        ::setenv("TZ", zone, 1);
        ::tzset();
        return PdfOf({JobOf({TextAt(1, 1, "\u03b1 text \u2603")})}, "Form");
    };
    const std::string first = print("1116253740", "UTC");
    EXPECT_EQ(print("1116253740", "UTC"), first);
    EXPECT_THAT(first, HasSubstr("<xmp:CreateDate>2005-05-16T14:29:00+00:00<"));
    EXPECT_THAT(print("1116253740", "Asia/Kolkata"), HasSubstr(">2005-05-16T19:59:00+05:30<"));
    EXPECT_NE(print("1116253741", "UTC"), first);
    EXPECT_THAT(print("12x", "UTC"), Not(HasSubstr("<xmp:CreateDate>1970")));
    ::unsetenv("SOURCE_DATE_EPOCH");
    ::unsetenv("TZ");
    ::tzset();
}

TEST(Archive, TellsFormsAndSamples) {
    PrintJob job = JobOf({});
    job.form = "Form I <VOA>";
    job.sample = "MW-1 & 2";
    const std::string pdf = PdfOf({job, job}, "Package");
    EXPECT_THAT(pdf,
                HasSubstr("<rdf:li>Form I &lt;VOA&gt;</rdf:li>\n<rdf:li>MW-1 &amp; 2</rdf:li>\n"
                          "</rdf:Bag>"));
}

}  // namespace
}  // namespace qfr::test
