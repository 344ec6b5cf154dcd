#include "common/FormTexts.h"

#include "common/Text.h"
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
        texts.push_back({name, control.Caption(), [&control](const std::u16string& text) { control.Caption(text); }});
    }

  private:
    void TakeTabs(TabStrip& tabs, const std::u16string& name) {
        int number = 0;
        for (const std::u16string& caption : tabs.Tabs()) {
            ++number;
            texts.push_back({name + u"." + NumberText(number), caption,
                             [&tabs, number](const std::u16string& text) { tabs.TabCaption(number, text); }});
        }
    }

    // The form's own controls, only arranged.
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

}  // namespace korvanta
