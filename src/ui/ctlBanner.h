#pragma once

#include <cstdint>
#include <string>

#include "common/clsRegSettings.h"
#include "controls/Controls.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "platform/Shell.h"
#include "platform/TextMeasure.h"
#include "ui/PropertyBag.h"

namespace korvanta {

// What a banner needs to lay itself out and to open its link.
struct BannerServices {
    FileSystem& files;
    const CodePage& codePage;
    Shell& shell;
    TextMeasure& textMeasure;
    clsRegSettings& registrySettings;
};

// The strip across the top of a form: a bold title, a one-line description, an optional web link at the right and two
// rules along its bottom edge.
class ctlBanner : public Container {
  public:
    ctlBanner(std::u16string name, const BannerServices& services);

    // Of the title label only; 0 is transparent.
    std::int16_t BackStyle() const { return backStyle_; }
    void BackStyle(std::int16_t style);
    // 0: none; 1: a border around the control.
    std::int16_t BorderStyle() const { return borderStyle_; }
    void BorderStyle(std::int16_t style);
    const std::u16string& Title() const { return lblTitle.Caption(); }
    void Title(const std::u16string& title);
    const std::u16string& Description() const { return lblDescription.Caption(); }
    void Description(const std::u16string& description);
    bool LinkVisible() const { return linkVisible_; }
    void LinkVisible(bool visible);
    using Control::Enabled;
    void Enabled(bool enabled);
    using Control::ForeColor;
    void ForeColor(Color color);
    using Control::BackColor;
    void BackColor(Color color);
    void Refresh();

    // In the bag, each of the properties above has the name of its function. Those that are not in it get their
    // defaults.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    // Sets the heights of the rows for the current font.
    void Measure();

    // Twips: the smallest width that shows title and description in full. A link that is too long for it is cut off.
    int SmallestWidth() const;

    // The form is about to show: reads from the settings whether there is a link, and its text.
    void Shown();

    Label lblTitle{u"lblTitle"};
    Label lblDescription{u"lblDescription"};
    Label lblLink{u"lblLink"};
    Line Line1{u"Line1"};
    Line Line2{u"Line2"};

  private:
    void Resized() override;
    void OpenLink();
    void WriteWaitingPage(const std::u16string& path, const std::u16string& address, const std::u16string& text);

    BannerServices services_;
    std::int16_t backStyle_ = 0;
    std::int16_t borderStyle_ = 0;
    bool linkVisible_ = true;
};

}  // namespace korvanta
