#include "ui/ctlBanner.h"

#include <algorithm>

#include "common/Deployment.h"
#include "common/Error.h"
#include "common/TextStream.h"

namespace korvanta {

namespace {
constexpr int margin = 240;
constexpr int lineHeight = 15;
constexpr int titleTop = 90;
constexpr int gap = 45;
constexpr int shortLink = 600;            // enough to click on
constexpr std::size_t longestText = 100;  // in average letters; longer texts are cut off instead of widening the form
constexpr int linkSlack = 120;            // for rounding and the focus rectangle

// The defaults of the properties.
constexpr Color backColor = systemColor::windowBackground;
constexpr Color foreColor = systemColor::buttonText;
constexpr std::int16_t transparent = 0;
constexpr std::int16_t noBorder = 0;
const char16_t* const defaultTitle = u"Title goes here";
const char16_t* const defaultDescription = u"Description goes here";
}  // namespace

ctlBanner::ctlBanner(std::u16string name, const BannerServices& services)
    : Container(std::move(name)), services_(services) {
    Control::BackColor(systemColor::windowBackground);
    lblTitle.Bold(true);
    lblTitle.AccessKey(false);
    lblDescription.AccessKey(false);
    lblLink.Clickable(true);
    lblLink.AccessKey(false);
    lblLink.ShowsData(true);
    lblLink.Align(Alignment::Right);
    for (Label* label : {&lblTitle, &lblLink, &lblDescription}) {
        label->BackColor(systemColor::windowBackground);
        Add(*label);
    }
    Line1.ForeColor(systemColor::buttonShadow);
    Line2.ForeColor(systemColor::buttonHighlight);
    Add(Line1);
    Add(Line2);
    ReadProperties({});
    lblLink.Caption(productWebSite);
    lblLink.Click.Connect([this] { OpenLink(); });

    Measure();
}

void ctlBanner::Measure() {
    const int titleHeight = services_.textMeasure.LineHeight(true);
    const int descriptionTop = titleTop + titleHeight + gap;
    const int rulesTop = descriptionTop + services_.textMeasure.LineHeight(false) + titleTop;
    lblTitle.Move({margin, titleTop, 0, titleHeight});
    lblDescription.Move({margin * 2, descriptionTop, 0, services_.textMeasure.LineHeight(false)});
    Line1.Move({0, rulesTop, 0, lineHeight});
    Line2.Move({0, rulesTop + lineHeight, 0, lineHeight});
    ctlBanner::Resized();
}

void ctlBanner::BackStyle(std::int16_t style) {
    backStyle_ = style;
    lblTitle.Transparent(style == 0);
}

void ctlBanner::BorderStyle(std::int16_t style) {
    borderStyle_ = style;
    Framed(style != 0);
}

void ctlBanner::Title(const std::u16string& title) {
    lblTitle.Caption(title);
}

void ctlBanner::Description(const std::u16string& description) {
    lblDescription.Caption(description);
}

void ctlBanner::LinkVisible(bool visible) {
    linkVisible_ = visible;
    lblLink.Visible(visible);
}

void ctlBanner::Enabled(bool enabled) {
    Control::Enabled(enabled);
    for (Label* label : {&lblTitle, &lblDescription, &lblLink}) {
        label->Enabled(enabled);
    }
}

void ctlBanner::ForeColor(Color color) {
    Control::ForeColor(color);
    lblTitle.ForeColor(color);
    lblDescription.ForeColor(color);
}

void ctlBanner::BackColor(Color color) {
    Control::BackColor(color);
    for (Label* label : {&lblTitle, &lblDescription, &lblLink}) {
        label->BackColor(color);
    }
}

void ctlBanner::Refresh() {
    if (Peer() != nullptr) {
        Peer()->Repaint();
    }
}

void ctlBanner::ReadProperties(const PropertyBag& bag) {
    BackColor(bag.Read(u"BackColor", backColor));
    ForeColor(bag.Read(u"ForeColor", foreColor));
    Enabled(bag.Read(u"Enabled", true));
    BackStyle(bag.Read(u"BackStyle", transparent));
    BorderStyle(bag.Read(u"BorderStyle", noBorder));
    Title(bag.Read(u"Title", defaultTitle));
    Description(bag.Read(u"Description", defaultDescription));
    LinkVisible(bag.Read(u"LinkVisible", true));
}

void ctlBanner::WriteProperties(PropertyBag& bag) const {
    bag.Write(u"BackColor", BackColor(), backColor);
    bag.Write(u"ForeColor", ForeColor(), foreColor);
    bag.Write(u"Enabled", Enabled(), true);
    bag.Write(u"BackStyle", backStyle_, transparent);
    bag.Write(u"BorderStyle", borderStyle_, noBorder);
    bag.Write(u"Title", Title(), defaultTitle);
    bag.Write(u"Description", Description(), defaultDescription);
    bag.Write(u"LinkVisible", linkVisible_, true);
}

void ctlBanner::Shown() {
    if (!linkVisible_) {
        lblLink.Visible(false);
        return;
    }
    const std::u16string custom = services_.registrySettings.ResellerURL();
    lblLink.Caption(custom.empty() ? services_.registrySettings.LinkName() : custom);
    lblLink.Visible(services_.registrySettings.ShowLink());
    Resized();
}

void ctlBanner::Resized() {
    const Place place = Position();
    const int width = place.width;
    for (Line* rule : {&Line1, &Line2}) {
        const Place line = rule->Position();
        rule->Move({line.left, line.top, std::max(width - line.left, 0), lineHeight});
    }

    // The link's text may have any length; it is cut off before it covers the title.
    const Place title = lblTitle.Position();
    const int titleRoom = title.left + services_.textMeasure.Width(lblTitle.Caption(), true) + margin;
    const int linkRoom = std::max({width - titleRoom - margin, std::min(shortLink, width - 3 * margin), 0});
    const int linkWidth = std::min(services_.textMeasure.Width(lblLink.Caption(), false) + linkSlack, linkRoom);
    const int linkLeft = width - linkWidth - margin;
    lblLink.Move({linkLeft, title.top, linkWidth, services_.textMeasure.LineHeight(false)});
    lblTitle.Move({title.left, title.top, std::max(linkLeft - margin - title.left, 0), title.height});
    const Place description = lblDescription.Position();
    lblDescription.Move(
        {description.left, description.top, std::max(width - description.left - margin, 0), description.height});

    // One pixel below the lower rule, whatever height the form gave.
    Move({place.left, place.top, width, Line2.Position().top + lineHeight});
}

int ctlBanner::SmallestWidth() const {
    const int title = lblTitle.Position().left + services_.textMeasure.Width(lblTitle.Caption(), true);
    const int description =
        lblDescription.Position().left + services_.textMeasure.Width(lblDescription.Caption(), false);
    return std::min(std::max(title + shortLink, description), services_.textMeasure.LettersWidth(longestText)) +
           2 * margin;
}

void ctlBanner::OpenLink() {
    const std::u16string custom = services_.registrySettings.ResellerURL();
    const std::u16string text = custom.empty() ? services_.registrySettings.LinkName() : custom;
    const std::u16string address = custom.empty() ? text + u"/credirect.htm" : custom;
    const std::u16string temporary = services_.files.TemporaryName();
    const std::u16string path =
        services_.files.TemporaryFolder() + u"\\TL" + temporary.substr(0, temporary.find(u'.')) + u".htm";
    try {
        WriteWaitingPage(path, address, text);
    } catch (const Error&) {
        // There is no page to open. The link is an extra, so its failure must not disturb the user's work.
        return;
    }
    services_.shell.OpenDocument(path);
}

void ctlBanner::WriteWaitingPage(const std::u16string& path, const std::u16string& address,
                                 const std::u16string& text) {
    TextOutput page = TextOutput::OpenAnsi(services_.files, services_.codePage, path);
    page.WriteLine(u"<HTML><META HTTP-EQUIV=\"Refresh\" CONTENT=\"1; URL=" + address + u"\">");
    page.WriteLine(u"<BODY bgcolor=\"white\"><FONT FACE=\"Verdana,Arial,Helvetica\">Please wait, loading <A HREF=" +
                   address + u"\">" + text + u"</A> ....</FONT></BODY></HTML>");
    page.Close();
}

}  // namespace korvanta
