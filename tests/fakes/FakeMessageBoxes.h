#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "fakes/FaultPlan.h"
#include "platform/MessageBoxes.h"

namespace korvanta::fakes {

// Records every box. Answers come from the queue; when it is empty the answer is OK, Cancel or No, by the buttons.
class FakeMessageBoxes : public MessageBoxes {
  public:
    struct Box {
        std::u16string text;
        std::u16string title;
        MessageButtons buttons;
        MessageIcon icon;

        bool operator==(const Box&) const = default;
    };

    FaultPlan faults;  // "Show": the box cannot be shown, as in a program that is ending
    std::vector<Box> shown;
    std::vector<Box> refused;
    std::deque<MessageAnswer> answers;
    // Called while a box is open. Messages run then, so anything may happen.
    std::function<void(const Box& box)> whileOpen;
    int open = 0;

    MessageAnswer Show(const std::u16string& text, const std::u16string& title, MessageButtons buttons,
                       MessageIcon icon) override {
        const Box box{text, title, buttons, icon};
        if (faults.Check("Show", text) != 0) {
            refused.push_back(box);
            return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Cancel;
        }
        shown.push_back(box);
        ++open;
        if (whileOpen) {
            whileOpen(box);
        }
        --open;
        if (!answers.empty()) {
            const MessageAnswer answer = answers.front();
            answers.pop_front();
            return answer;
        }
        switch (buttons) {
            case MessageButtons::OK:
                return MessageAnswer::OK;
            case MessageButtons::OKCancel:
                return MessageAnswer::Cancel;
            case MessageButtons::YesNo:
                break;
        }
        return MessageAnswer::No;
    }
};

}  // namespace korvanta::fakes
