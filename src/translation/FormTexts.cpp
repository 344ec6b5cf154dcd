#include "translation/FormTexts.h"

#include <set>
#include <utility>

#include "common/Text.h"
#include "controls/AccessKey.h"
#include "controls/Controls.h"

namespace korvanta {

namespace {

class Walk {
  public:
    std::vector<FormText> texts;

    void Through(Container& container, const std::u16string& name) {
        for (Control* child : container.Children()) {
            const std::u16string childName = name + u"." + child->Name();
            TakeCaption(*child, childName);
            if (auto* tabs = dynamic_cast<TabStrip*>(child)) {
                TakeTabs(*tabs, childName);
            } else if (auto* nested = dynamic_cast<Container*>(child); nested && nested->TranslatesAs().empty()) {
                Through(*nested, GroupsOnly(*nested) ? name : childName);
            }
        }
    }

    void TakeCaption(Control& control, const std::u16string& name) {
        const auto* label = dynamic_cast<const Label*>(&control);
        if (control.Caption().empty() || (label && label->ShowsData()) || dynamic_cast<const TextBox*>(&control)) {
            return;
        }
        texts.push_back({name, control.Caption(), [&control](const std::u16string& text) { control.Caption(text); },
                         MarksAccessKey(control)});
    }

  private:
    void TakeTabs(TabStrip& tabs, const std::u16string& name) {
        int number = 0;
        for (const std::u16string& caption : tabs.Tabs()) {
            ++number;
            texts.push_back({name + u"." + NumberText(number), caption,
                             [&tabs, number](const std::u16string& text) { tabs.TabCaption(number, text); }, true});
        }
    }

    // An invisible control has no access key; those of a menu's entries are not the form's.
    static bool MarksAccessKey(const Control& control) {
        const auto* label = dynamic_cast<const Label*>(&control);
        return control.Visible() && dynamic_cast<const HiddenTexts*>(control.Parent()) == nullptr &&
               ((label != nullptr && label->AccessKey()) || dynamic_cast<const CheckBox*>(&control) != nullptr ||
                dynamic_cast<const CommandButton*>(&control) != nullptr);
    }

    // Whether the container only groups controls of the form, so that its name is not part of their keys.
    static bool GroupsOnly(const Container& container) {
        return dynamic_cast<const Frame*>(&container) || dynamic_cast<const PopupMenu*>(&container) ||
               dynamic_cast<const HiddenTexts*>(&container);
    }
};

}  // namespace

std::vector<FormText> TextsOf(Container& owner) {
    const std::u16string name = owner.TranslatesAs().empty() ? owner.Name() : std::u16string(owner.TranslatesAs());
    Walk walk;
    walk.TakeCaption(owner, name);
    walk.Through(owner, name);
    return std::move(walk.texts);
}

std::vector<std::u16string> DropRepeatedAccessKeys(Container& form) {
    std::set<char16_t> taken;
    std::vector<std::u16string> losers;
    for (const FormText& text : TextsOf(form)) {
        const std::size_t key = text.marksAccessKey ? AccessKeyPlace(text.text) : std::u16string::npos;
        if (key != std::u16string::npos && !taken.insert(LowerUnit(text.text[key])).second) {
            text.replace(WithoutAccessKey(text.text));
            losers.push_back(text.key);
        }
    }
    return losers;
}

}  // namespace korvanta
