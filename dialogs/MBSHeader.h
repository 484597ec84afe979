// The comments dialog of Form IV, the method blank summary.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/EntryDialogs.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

namespace Ui {
class TMBSHeader;
}

namespace qfr {

class TMBSHeader : public EntryWindow {
    Q_OBJECT

  public:
    TMBSHeader(FormHost& host, WindowServices& services, QWidget* parent = nullptr);
    ~TMBSHeader() override;

    bool Run(std::size_t headerRecord) override;
    void StoreInto(Batch& batch, Entries& entries) const override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    static constexpr int kMaxLength = 256;  // characters, line breaks among them

    // Takes back what was typed or pasted beyond the room for comments.
    void CutToLength();
    void TakeBackFieldEnds();
    // Strikes out what the form has no room for, and says how much of its lines is used.
    void ShowRoom();
    void OkClick();
    std::vector<std::string> Lines() const;
    void FitToFont();

    FormHost& host_;
    std::unique_ptr<Ui::TMBSHeader> ui_;
    int room_ = kMaxLength;     // characters that the box takes
    bool hasFieldEnd_ = false;  // was typed or pasted since the dialog opened
};

}  // namespace qfr
