// Where the print jobs of the run go, for the windows that show it and let it be changed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QObject>

namespace qfr {

class PrinterChoice : public QObject {
    Q_OBJECT

  public:
    // Names of what can be printed on; empty as long as nobody has asked for all of them.
    virtual const std::vector<std::string>& Known() const = 0;
    // The same, asked for where need be. The print service may take its time.
    virtual const std::vector<std::string>& All() = 0;
    // An index of Known(); absent while the next job would ask for a printer.
    virtual std::optional<int> Chosen() const = 0;
    virtual void Choose(int index) = 0;

  signals:
    void Changed();
};

}  // namespace qfr
