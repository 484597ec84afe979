// What the forms state, for other programs: each form's texts under names that do not change,
// without a page or a format. The writers of files read these and know nothing of forms.
#pragma once

#include <string>
#include <vector>

#include "forms/FormList.h"

namespace qfr {

struct ValueColumn {
    std::string Name;       // "dilutionFactor"
    bool IsNumber = false;  // a number is meant there, whatever stands there
};

struct ValueTable {
    std::string Name;  // empty for the fields of a form's header
    std::vector<ValueColumn> Columns;
    std::vector<std::vector<std::string>> Rows;  // a text for each column, as it prints
};

struct FormValues {
    std::string Form;    // "1", as in kForms
    std::string Sample;  // as in lists; empty for a form that prints once for the batch
    std::string Report;  // base name of the sample's report; likewise
    ValueTable Fields;   // one row
    std::vector<ValueTable> Tables;
};

// Every text and flag of the content, once; who asked for it says which form and sample it is.
FormValues ValuesOf(const AnyFormContent& content);

}  // namespace qfr
