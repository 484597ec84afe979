#include "platform/pdf/ArchiveData.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string_view>

#include "platform/Text.h"

namespace qfr {

namespace {

using Object = QPDFObjectHandle;

constexpr char kCreator[] = "QFR Forms";

std::string Producer() {
    return std::string("QFR Forms " QFR_VERSION " with qpdf ") + QPDF::QPDFVersion();
}

std::time_t DocumentTime() {
    if (const char* const fixed = std::getenv("SOURCE_DATE_EPOCH")) {
        const std::string_view digits(fixed);
        std::int64_t seconds = 0;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), seconds);
        if (error == std::errc() && end == digits.data() + digits.size()) {
            return seconds;
        }
    }
    return std::time(nullptr);
}

// A time as its parts: "20050516142900" and "+0200".
struct Time {
    std::string digits;
    std::string zone;
};

// Since any fixed day, as a clock shows them.
std::int64_t MinutesOf(const std::tm& clock) {
    const std::chrono::sys_days day =
        std::chrono::year(clock.tm_year + 1900) / (clock.tm_mon + 1) / clock.tm_mday;
    return std::int64_t{day.time_since_epoch().count()} * 1440 + clock.tm_hour * 60 + clock.tm_min;
}

Time PartsOf(std::time_t time) {
    const std::tm* const utc = std::gmtime(&time);  // NOLINT(concurrency-mt-unsafe)
    const std::int64_t utcMinutes = utc != nullptr ? MinutesOf(*utc) : 0;
    const std::tm* const local = std::localtime(&time);  // NOLINT(concurrency-mt-unsafe)
    std::array<char, 64> text{};
    constexpr std::size_t kDigits = 14;
    if (utc == nullptr || local == nullptr ||
        std::strftime(text.data(), text.size(), "%Y%m%d%H%M%S", local) != kDigits) {
        return {"19700101000000", "+0000"};  // no such time in a year of four digits
    }
    // Not every system tells the zone in digits.
    const auto ahead = static_cast<int>(MinutesOf(*local) - utcMinutes);
    std::array<char, 16> zone{};
    std::snprintf(zone.data(), zone.size(), "%c%02d%02d", ahead < 0 ? '-' : '+',
                  std::abs(ahead) / 60, std::abs(ahead) % 60);
    return {std::string(text.data(), kDigits), zone.data()};
}

// As "D:20050516142900+02'00'".
std::string PdfDate(const Time& time) {
    return "D:" + time.digits + time.zone.substr(0, 3) + "'" + time.zone.substr(3) + "'";
}

// As "2005-05-16T14:29:00+02:00".
std::string XmlDate(const Time& time) {
    const std::string& digits = time.digits;
    return digits.substr(0, 4) + "-" + digits.substr(4, 2) + "-" + digits.substr(6, 2) + "T" +
           digits.substr(8, 2) + ":" + digits.substr(10, 2) + ":" + digits.substr(12, 2) +
           time.zone.substr(0, 3) + ":" + time.zone.substr(3);
}

std::string XmlText(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string XmlElement(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">\n";
}

std::string Metadata(const DocumentData& data, const Time& time) {
    std::string subjects;
    for (const std::string& subject : data.subjects) {
        subjects += XmlElement("rdf:li", XmlText(subject));
    }
    const std::string date = XmlDate(time);
    return "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
           "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
           "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
           "<rdf:Description rdf:about=\"\""
           " xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\""
           " xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
           " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\""
           " xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\">\n" +
           XmlElement("pdfaid:part", "2") + XmlElement("pdfaid:conformance", "U") +
           XmlElement("dc:format", "application/pdf") +
           XmlElement("dc:title", "<rdf:Alt><rdf:li xml:lang=\"x-default\">" + XmlText(data.title) +
                                      "</rdf:li></rdf:Alt>") +
           (subjects.empty() ? ""
                             : XmlElement("dc:subject", XmlElement("rdf:Bag", "\n" + subjects))) +
           XmlElement("xmp:CreatorTool", kCreator) + XmlElement("xmp:CreateDate", date) +
           XmlElement("xmp:ModifyDate", date) + XmlElement("pdf:Producer", Producer()) +
           "</rdf:Description>\n</rdf:RDF>\n</x:xmpmeta>\n<?xpacket end=\"w\"?>";
}

void PutNumber(std::string& bytes, std::uint32_t value, int size = 4) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) {
        bytes += static_cast<char>(value >> static_cast<unsigned>(shift));
    }
}

void Fill(std::string& bytes, std::size_t size) {
    bytes.resize(size, '\0');
}

// A profile of the International Color Consortium, version 2: greys as a display of gamma 2.2 shows
// them. The pages are black and white; what black is must be said nevertheless.
std::string GreyProfile() {
    constexpr std::string_view kName = "Grey, gamma 2.2";
    std::string description = "desc";
    PutNumber(description, 0);
    PutNumber(description, kName.size() + 1);
    description += kName;
    Fill(description, 12 + kName.size() + 1 + 4 + 4 + 2 + 1 + 67);  // no other languages
    std::string copyright = "text";
    PutNumber(copyright, 0);
    copyright += "No rights reserved";
    copyright += '\0';
    std::string whitePoint = "XYZ ";
    PutNumber(whitePoint, 0);
    constexpr std::array<std::uint32_t, 3> kD50 = {0xF6D6, 0x10000, 0xD32D};
    for (const std::uint32_t part : kD50) {
        PutNumber(whitePoint, part);
    }
    std::string curve = "curv";
    PutNumber(curve, 0);
    PutNumber(curve, 1);
    constexpr std::uint32_t kGamma = 0x233;  // 2.2, in 256ths
    PutNumber(curve, kGamma, 2);

    constexpr std::size_t kHeader = 128;
    const std::array<std::pair<std::string_view, std::string*>, 4> tags = {
        {{"desc", &description}, {"cprt", &copyright}, {"wtpt", &whitePoint}, {"kTRC", &curve}}};
    std::string table;
    std::string body;
    PutNumber(table, tags.size());
    const std::size_t start = kHeader + 4 + 12 * tags.size();
    for (const auto& [name, content] : tags) {
        table += name;
        PutNumber(table, static_cast<std::uint32_t>(start + body.size()));
        PutNumber(table, static_cast<std::uint32_t>(content->size()));
        body += *content;
        Fill(body, (body.size() + 3) / 4 * 4);
    }
    std::string profile;
    PutNumber(profile, static_cast<std::uint32_t>(start + body.size()));
    PutNumber(profile, 0);           // no module of its own
    PutNumber(profile, 0x02100000);  // version
    profile += "mntrGRAYXYZ ";
    for (const std::uint32_t part : {2005U, 5U, 16U, 0U, 0U, 0U}) {
        PutNumber(profile, part, 2);  // made
    }
    profile += "acsp";
    constexpr std::size_t kIlluminantAt = 68;
    Fill(profile, kIlluminantAt);
    for (const std::uint32_t part : kD50) {
        PutNumber(profile, part);
    }
    Fill(profile, kHeader);
    return profile + table + body;
}

}  // namespace

void AddArchiveData(QPDF& document, const DocumentData& data) {
    const Time time = PartsOf(DocumentTime());
    const DocumentData plain = [&data] {
        // An archive takes no longer string than 32,767 bytes.
        const auto show = [](const std::string& text) {
            return Visible(FirstCharacters(text, kMaxPrintedText));
        };
        DocumentData visible{show(data.title), {}};
        for (const std::string& subject : data.subjects) {
            visible.subjects.insert(show(subject));
        }
        return visible;
    }();
    Object root = document.getRoot();
    Object metadata = document.newStream(Metadata(plain, time));
    metadata.getDict().replaceKey("/Type", Object::newName("/Metadata"));
    metadata.getDict().replaceKey("/Subtype", Object::newName("/XML"));
    root.replaceKey("/Metadata", metadata);

    Object profile = document.newStream(GreyProfile());
    profile.getDict().replaceKey("/N", Object::newInteger(1));
    const Object intent =
        Object::newDictionary({{"/Type", Object::newName("/OutputIntent")},
                               {"/S", Object::newName("/GTS_PDFA1")},
                               {"/OutputConditionIdentifier", Object::newString("Grey, gamma 2.2")},
                               {"/Info", Object::newString("Grey, gamma 2.2")},
                               {"/DestOutputProfile", profile}});
    root.replaceKey("/OutputIntents", Object::newArray(std::vector<Object>{intent}));

    const Object date = Object::newString(PdfDate(time));
    document.getTrailer().replaceKey(
        "/Info", document.makeIndirectObject(
                     Object::newDictionary({{"/Title", Object::newUnicodeString(plain.title)},
                                            {"/Creator", Object::newString(kCreator)},
                                            {"/Producer", Object::newString(Producer())},
                                            {"/CreationDate", date},
                                            {"/ModDate", date}})));
}

}  // namespace qfr
