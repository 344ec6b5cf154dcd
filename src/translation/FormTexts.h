#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace korvanta {

// A text of a form that a translation may replace.
struct FormText {
    // By what a catalogue knows it: the form's name for its caption; the form's name, a dot and the control's name;
    // for a tab also a dot and its number. A control within a control put together from others has both names.
    std::u16string key;
    std::u16string text;
    // Valid as long as the form lives.
    std::function<void(const std::u16string&)> replace;
    // Whether an "&" in it marks an access key of the form.
    bool marksAccessKey = false;
};

// The texts of a form, or of a control that hands itself to the translation, in tab order. Empty texts, what users
// type and labels that show data are none.
std::vector<FormText> TextsOf(Container& owner);

// Takes the access key from each text of the form that has that of an earlier one; otherwise Windows would go back and
// forth between the two, and press neither. Gives the keys (FormText) of the texts that lost theirs.
std::vector<std::u16string> DropRepeatedAccessKeys(Container& form);

}  // namespace korvanta
