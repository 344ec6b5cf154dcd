#pragma once

#include <cstddef>

#include "controls/Controls.h"
#include "platform/TextMeasure.h"

namespace korvanta {

// The distances and sizes that all forms share. All lengths are twips.
class Measures {
  public:
    static constexpr int margin = 180;   // from a form's edge to its controls
    static constexpr int gap = 105;      // from one control to the next
    static constexpr int smallGap = 60;  // the same between rows that belong together
    static constexpr int slack = 60;     // beyond a caption's own width, for rounding and focus rectangles

    explicit Measures(TextMeasure& textMeasure) : textMeasure_(textMeasure) {}

    // A row of text, bold or not.
    int LineHeight() const;
    // A text box, a combo box or a button.
    int FieldHeight() const;
    // Room for the label's caption. What is longer than so many letters on average is cut off rather than widen the
    // window beyond any screen and leave no room for the fields.
    int CaptionWidth(const Label& label, std::size_t longest) const;
    // The width that two buttons side by side both get: that of the longer caption, within limits.
    int ButtonWidth(const CommandButton& one, const CommandButton& other) const;
    // Puts two buttons of that width side by side, the second one so that it ends at `right`.
    void PlaceButtons(CommandButton& first, CommandButton& second, int right, int top) const;

  private:
    TextMeasure& textMeasure_;
};

}  // namespace korvanta
