#include "app/FormList.h"

#include "forms/Form1Tic.h"
#include "forms/Form1Voa.h"
#include "forms/Form2.h"
#include "forms/Form4.h"
#include "forms/Form5.h"
#include "forms/Form6.h"
#include "forms/Form7.h"
#include "forms/Form8.h"

namespace qfr {

constexpr std::array<FormRow, kFormCount> kForms = {{
    {.name = "1", .caption = "Form I VOA", .printSample = PrintFormIVoa},
    {.name = "tic",
     .caption = "Form I VOA-TIC",
     .printSample = PrintFormITic,
     .onlyWithTics = true},
    {.name = "2", .caption = "Form II, monitoring compound recovery", .printBatch = Form2MCRClick},
    {.name = "4", .caption = "Form IV, method blank summary", .printBatch = Form4MBSClick},
    {.name = "5", .caption = "Form V, instrument performance check", .printBatch = Form5IPCClick},
    {.name = "6", .caption = "Form VI, initial calibration data", .printBatch = Form6CIDClick},
    {.name = "7", .caption = "Form VII, continuing calibration data", .printBatch = Form7CCDClick},
    {.name = "8", .caption = "Form VIII, internal standard summary", .printBatch = Form8ARTClick},
}};

}  // namespace qfr
