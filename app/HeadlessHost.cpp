#include "app/HeadlessHost.h"

#include <utility>

#include "platform/Text.h"

namespace qfr {

void WriteMessage(std::ostream& out, const Message& message) {
    if (!message.title.empty()) {
        out << message.title << ": ";
    }
    out << OneLine(message.text) << '\n';
}

HeadlessHost::HeadlessHost(SavedBatch saved, TextMetrics& metrics, std::ostream& messages,
                           std::vector<DialogRules> rules)
    : saved_(std::move(saved)),
      messages_(messages),
      rules_(std::move(rules)),
      printer_(metrics, *this),
      page_(printer_, [] {}) {}

void HeadlessHost::Show(const Message& message) {
    WriteMessage(messages_, message);
}

bool HeadlessHost::AskYesNo(const Message& question) {
    WriteMessage(messages_, question);
    return false;
}

bool HeadlessHost::ShowEntryDialog(EntryDialog dialog, std::size_t headerRecord) {
    for (const DialogRules& rules : rules_) {
        if (rules.dialog != dialog) {
            continue;
        }
        if (rules.onShow) {
            rules.onShow(*this, headerRecord);
        }
        if (const std::optional<Message> refusal = rules.onOk ? rules.onOk(*this) : std::nullopt) {
            Show(*refusal);
            return false;
        }
    }
    return true;
}

}  // namespace qfr
