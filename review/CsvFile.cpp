#include <map>
#include <vector>

#include "platform/Numbers.h"
#include "review/ValueFiles.h"

namespace qfr {

namespace {

// What tells a line from the others.
const char* const kKeys[] = {"sample", "report", "table", "row"};

// The columns of the file by name: fields and tables share those that are called the same.
class CsvColumns {
  public:
    CsvColumns() {
        for (const char* const key : kKeys) {
            Add(key);
        }
    }
    void Add(const ValueTable& table) {
        for (const ValueColumn& column : table.Columns) {
            Add(column.Name);
            if (column.IsNumber) {
                Add(NumberName(column));
            }
        }
    }
    // The head of the column beside it that holds numbers only.
    static std::string NumberName(const ValueColumn& column) { return column.Name + ".number"; }
    std::size_t Of(const std::string& name) const { return places_.at(name); }
    const std::vector<std::string>& Names() const { return names_; }

  private:
    void Add(const std::string& name) {
        if (places_.try_emplace(name, names_.size()).second) {
            names_.push_back(name);
        }
    }
    std::map<std::string, std::size_t> places_;
    std::vector<std::string> names_;
};

std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char character : text) {
        quoted.append(character == '"' ? 2 : 1, character);
    }
    return quoted + "\"";
}

void AddLine(std::string& csv, const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        csv += (i == 0 ? "" : ",") + Quoted(cells[i]);
    }
    csv += "\r\n";
}

void AddRows(std::string& csv, const CsvColumns& columns, const FormValues& form,
             const ValueTable& table) {
    for (std::size_t row = 0; row < table.Rows.size(); ++row) {
        // In the order of the keys.
        std::vector<std::string> cells = {form.Sample, form.Report, table.Name,
                                          table.Name.empty() ? "" : std::to_string(row + 1)};
        cells.resize(columns.Names().size());
        for (std::size_t i = 0; i < table.Columns.size(); ++i) {
            const ValueColumn& column = table.Columns[i];
            const std::string& text = table.Rows[row][i];
            cells[columns.Of(column.Name)] = text;
            if (const auto number = column.IsNumber ? ParseNumber(text) : std::nullopt) {
                cells[columns.Of(CsvColumns::NumberName(column))] = FormatShortest(*number);
            }
        }
        AddLine(csv, cells);
    }
}

}  // namespace

std::string CsvText(std::span<const FormValues> forms) {
    CsvColumns columns;
    for (const FormValues& form : forms) {
        columns.Add(form.Fields);
        for (const ValueTable& table : form.Tables) {
            columns.Add(table);
        }
    }
    std::string csv;
    AddLine(csv, columns.Names());
    for (const FormValues& form : forms) {
        AddRows(csv, columns, form, form.Fields);
        for (const ValueTable& table : form.Tables) {
            AddRows(csv, columns, form, table);
        }
    }
    return csv;
}

}  // namespace qfr
