#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

#include "platform/Numbers.h"
#include "review/ValueFiles.h"

namespace qfr {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kVersion = 1;  // of the document's form
constexpr int kIndent = 1;

Json RowOf(const std::vector<ValueColumn>& columns, const std::vector<std::string>& texts) {
    Json row = Json::object();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        Json& value = row[columns[i].Name];
        if (columns[i].IsNumber) {
            const std::optional<double> number = ParseNumber(texts[i]);
            value = {{"text", texts[i]}, {"number", number ? Json(*number) : Json()}};
        } else {
            value = texts[i];
        }
    }
    return row;
}

Json TableOf(const ValueTable& table) {
    Json rows = Json::array();
    for (const std::vector<std::string>& texts : table.Rows) {
        rows.push_back(RowOf(table.Columns, texts));
    }
    return rows;
}

}  // namespace

std::string JsonText(std::span<const FormValues> forms) {
    Json list = Json::array();
    for (const FormValues& form : forms) {
        Json tables = Json::object();
        for (const ValueTable& table : form.Tables) {
            tables[table.Name] = TableOf(table);
        }
        list.push_back({{"form", form.Form},
                        {"sample", form.Sample},
                        {"report", form.Report},
                        {"fields", RowOf(form.Fields.Columns, form.Fields.Rows.front())},
                        {"tables", std::move(tables)}});
    }
    const Json document = {
        {"format", "qfrforms-values"}, {"version", kVersion}, {"forms", std::move(list)}};
    // Whatever stands there, a document comes of it.
    return document.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace qfr
