#include "controls/Controls.h"

#include <algorithm>

namespace korvanta {

namespace {
// In how many steps a bar moves at most: a long list counts much faster than a user could see.
constexpr std::int64_t visibleSteps = 256;
}  // namespace

void Label::Transparent(bool transparent) {
    if (transparent_ != transparent) {
        transparent_ = transparent;
        Tell(Aspect::Colors);
    }
}

void TextBox::Text(const std::u16string& text) {
    if (Text() != text) {
        Caption(text);
        Change.Raise();
    }
}

void TextBox::HandleChange(const std::u16string& text) {
    if (Text() != text) {
        Adopt(text);
        Change.Raise();
    }
}

bool TextBox::HandleKeyDown(Key key) {
    bool swallowed = false;
    KeyDown.Raise(key, swallowed);
    return swallowed;
}

void CheckBox::Value(bool value) {
    if (value_ != value) {
        value_ = value;
        Tell(Aspect::Selection);
        Click.Raise();
    }
}

void CheckBox::HandleClick(bool value) {
    if (value_ != value) {
        value_ = value;
        Click.Raise();
    }
}

void ComboBox::Items(std::vector<std::u16string> items) {
    items_ = std::move(items);
    listIndex_ = -1;
    Tell(Aspect::Content);
}

void ComboBox::ListIndex(int index) {
    if (index < 0 || index >= static_cast<int>(items_.size())) {
        index = -1;
    }
    if (listIndex_ != index) {
        listIndex_ = index;
        Tell(Aspect::Selection);
        Change.Raise();
    }
}

void ComboBox::ListIndexFromScreen(int index) {
    index = std::max(index, -1);
    if (index < static_cast<int>(items_.size()) && listIndex_ != index) {
        listIndex_ = index;
        Change.Raise();
    }
}

void ProgressBar::Maximum(int maximum) {
    maximum = std::max(maximum, 1);
    if (maximum_ != maximum) {
        maximum_ = maximum;
        value_ = std::min(value_, maximum_);
        Tell(Aspect::Content);
    }
}

void ProgressBar::Value(int value) {
    value = std::clamp(value, 0, maximum_);
    const auto step = [this](int position) { return std::int64_t{position} * visibleSteps / maximum_; };
    const bool moved = step(value_) != step(value);
    value_ = value;
    if (moved) {
        Tell(Aspect::Selection);
    }
}

void TabStrip::Tabs(std::vector<std::u16string> captions) {
    tabs_ = std::move(captions);
    selected_ = 1;
    Tell(Aspect::Content);
}

void TabStrip::TabCaption(int tab, const std::u16string& caption) {
    if (tab < 1 || tab > static_cast<int>(tabs_.size())) {
        return;
    }
    std::u16string& current = tabs_[static_cast<std::size_t>(tab) - 1];
    if (current != caption) {
        current = caption;
        Tell(Aspect::Content);
    }
}

void TabStrip::Selected(int tab) {
    if (tab >= 1 && tab <= static_cast<int>(tabs_.size()) && tab != selected_) {
        selected_ = tab;
        Tell(Aspect::Selection);
        Click.Raise();
    }
}

void TabStrip::HandleSelected(int tab) {
    if (tab >= 1 && tab <= static_cast<int>(tabs_.size()) && tab != selected_) {
        selected_ = tab;
        Click.Raise();
    }
}

void TabStrip::HandleChosenByKey(int tab) {
    Selected(tab);
    if (selected_ == tab) {
        ChosenByKey.Raise();
    }
}

void TabStrip::HandleStepByKey(int tabs) {
    const auto count = static_cast<int>(tabs_.size());
    if (count > 0) {
        HandleChosenByKey(((selected_ - 1 + tabs) % count + count) % count + 1);
    }
}

bool ListView::AddItem(const std::u16string& key, const std::u16string& text, int icon) {
    if (!keys_.insert(key).second) {
        return false;
    }
    items_.push_back({text, icon});
    Tell(Aspect::Content);
    return true;
}

void ListView::Clear() {
    if (!items_.empty()) {
        items_.clear();
        keys_.clear();
        Tell(Aspect::Content);
    }
}

void Timer::Interval(int milliseconds) {
    if (interval_ != milliseconds) {
        interval_ = milliseconds;
        Tell(Aspect::Content);
    }
}

}  // namespace korvanta
