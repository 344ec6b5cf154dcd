#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "common/Text.h"
#include "controls/Controls.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "platform/TextMeasure.h"

namespace korvanta::layout {

// What is wrong with how a form's controls lie, in words; empty when all is well:
// - two visible siblings overlap (the pages of a tab strip lie on it and on one another, which is as it should be)
// - a control is empty, or does not lie inside its container
// - a caption does not fit its control
// - the order in which controls were added, which is the tab order, is not reading order
// - two captions of the form have the same access key
class LayoutCheck {
  public:
    explicit LayoutCheck(TextMeasure& measure) : measure_(measure) {}

    // Texts that come from outside and may be longer than any control; by the controls' names.
    std::set<std::u16string> anyLength;

    std::vector<std::string> Problems(const Form& form) {
        problems_.clear();
        keys_.clear();
        Check(form, {0, 0, form.ClientWidth(), form.ClientHeight()});
        return problems_;
    }

  private:
    static constexpr int checkBoxRoom = 270;  // the box and the gap behind it
    static constexpr int buttonRoom = 150;    // its edges and focus rectangle
    static constexpr int tabRoom = 180;       // around the caption of each tab

    static std::string Narrow(const std::u16string& text) {
        std::string narrow;
        for (const char16_t unit : text) {
            narrow += unit < 128 ? static_cast<char>(unit) : '?';
        }
        return narrow;
    }
    static std::string Said(const Place& place) {
        return "(" + std::to_string(place.left) + "," + std::to_string(place.top) + " " + std::to_string(place.width) +
               "x" + std::to_string(place.height) + ")";
    }
    static std::string Said(const Control& control) { return Narrow(control.Name()) + Said(control.Position()); }

    static bool IsPage(const Control& control) { return dynamic_cast<const Frame*>(&control) != nullptr; }
    static bool HasPlace(const Control& control) {
        return dynamic_cast<const Timer*>(&control) == nullptr && dynamic_cast<const PopupMenu*>(&control) == nullptr &&
               dynamic_cast<const MenuEntry*>(&control) == nullptr;
    }
    // Pages are checked whether their tab is chosen or not.
    static bool IsSeen(const Control& control) { return HasPlace(control) && (control.Visible() || IsPage(control)); }

    void Check(const Container& container, const Place& inside) {
        std::vector<const Control*> seen;
        const Control* before = nullptr;
        for (const Control* child : container.Children()) {
            CheckAccessKey(*child);
            CheckName(*child, before);
            before = child;
            if (IsSeen(*child)) {
                seen.push_back(child);
            }
        }
        for (std::size_t i = 0; i < seen.size(); ++i) {
            CheckInside(*seen[i], container, inside);
            CheckCaption(*seen[i]);
            for (std::size_t j = i + 1; j < seen.size(); ++j) {
                CheckPair(*seen[i], *seen[j]);
            }
            if (const auto* nested = dynamic_cast<const Container*>(seen[i])) {
                Check(*nested, {0, 0, nested->Position().width, nested->Position().height});
            }
        }
    }

    // Screen readers take the text directly before a field for its name.
    void CheckName(const Control& control, const Control* before) {
        const bool isField =
            dynamic_cast<const TextBox*>(&control) != nullptr || dynamic_cast<const ComboBox*>(&control) != nullptr ||
            dynamic_cast<const Grid*>(&control) != nullptr || dynamic_cast<const ListView*>(&control) != nullptr ||
            dynamic_cast<const TabStrip*>(&control) != nullptr;
        const auto* label = dynamic_cast<const Label*>(before);
        if (isField && (label == nullptr || label->Clickable() || label->Caption().empty())) {
            problems_.push_back(Said(control) + " has no label directly before it");
        }
    }

    void CheckInside(const Control& control, const Container& container, const Place& inside) {
        const Place& place = control.Position();
        if (place.width <= 0 || place.height <= 0) {
            problems_.push_back(Said(control) + " is empty");
        }
        if (place.left < 0 || place.top < 0 || place.Right() > inside.width || place.Bottom() > inside.height) {
            problems_.push_back(Said(control) + " is not inside " + Narrow(container.Name()) + Said(inside));
        }
    }

    void CheckPair(const Control& first, const Control& second) {
        const Place& a = first.Position();
        const Place& b = second.Position();
        const bool sameRow = a.top < b.Bottom() && b.top < a.Bottom();
        const bool sameColumn = a.left < b.Right() && b.left < a.Right();
        const bool onTab = IsPage(second) && (IsPage(first) || dynamic_cast<const TabStrip*>(&first) != nullptr);
        if (sameRow && sameColumn && !onTab) {
            problems_.push_back(Said(first) + " and " + Said(second) + " overlap");
        }
        if (b.Bottom() <= a.top || (sameRow && b.Right() <= a.left)) {
            problems_.push_back(Said(second) + " is read before " + Said(first));
        }
    }

    void CheckAccessKey(const Control& control) {
        const auto* label = dynamic_cast<const Label*>(&control);
        if ((label != nullptr && !label->AccessKey()) || dynamic_cast<const TextBox*>(&control) != nullptr) {
            return;
        }
        TakeAccessKey(control, control.Caption());
        if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) {
            for (const std::u16string& caption : tabs->Tabs()) {
                TakeAccessKey(control, caption);
            }
        }
    }
    void TakeAccessKey(const Control& control, const std::u16string& caption) {
        const std::size_t mark = caption.find(u'&');
        if (mark != std::u16string::npos && mark + 1 < caption.size() && caption[mark + 1] != u'&' &&
            !keys_.insert(LowerUnit(caption[mark + 1])).second) {
            problems_.push_back(Said(control) + " has an access key that is taken: " + Narrow(caption));
        }
    }

    void CheckCaption(const Control& control) {
        const auto* label = dynamic_cast<const Label*>(&control);
        const bool bold = label != nullptr && label->Bold();
        int width = 0;
        int lines = 1;
        if (label != nullptr) {
            if (label->Wrap()) {
                lines = WrappedLines(control.Caption(), control.Position().width, bold);
            } else {
                width = measure_.Width(control.Caption(), bold);
            }
        } else if (dynamic_cast<const CheckBox*>(&control) != nullptr) {
            width = measure_.Width(control.Caption(), false) + checkBoxRoom;
        } else if (dynamic_cast<const CommandButton*>(&control) != nullptr) {
            width = measure_.Width(control.Caption(), false) + buttonRoom;
        } else if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) {
            for (const std::u16string& caption : tabs->Tabs()) {
                width += measure_.Width(caption, false) + tabRoom;
            }
        } else if (dynamic_cast<const TextBox*>(&control) == nullptr &&
                   dynamic_cast<const ComboBox*>(&control) == nullptr) {
            return;
        }
        if (anyLength.contains(control.Name())) {
            width = 0;
        }
        if (width > control.Position().width || lines * measure_.LineHeight(bold) > control.Position().height) {
            problems_.push_back(Said(control) +
                                " is too small for its text: " + Narrow(control.Caption().substr(0, 80)));
        }
    }

    int WrappedLines(const std::u16string& caption, int width, bool bold) {
        int lines = 1;
        std::u16string line;
        for (const std::u16string& word : Split(caption, u" ")) {
            const std::u16string longer = line.empty() ? word : line + u" " + word;
            if (!line.empty() && measure_.Width(longer, bold) > width) {
                ++lines;
                line = word;
            } else {
                line = longer;
            }
        }
        return lines;
    }

    TextMeasure& measure_;
    std::vector<std::string> problems_;
    std::set<char16_t> keys_;
};

}  // namespace korvanta::layout
