// Characters that command what shows a text instead of being shown.
#pragma once

namespace liedwerk {

// True for control characters (C0, DEL, C1), the line and paragraph separators, and the characters that turn
// the writing direction (Unicode, Bidi_Control but the Arabic letter mark): on a terminal they are commands,
// or let a name pretend to be another one.
constexpr bool IstSteuerzeichen(char32_t Zeichen) {
    return Zeichen < 0x20 || (Zeichen >= 0x7F && Zeichen < 0xA0) ||
           (Zeichen >= 0x200E && Zeichen <= 0x200F) || (Zeichen >= 0x2028 && Zeichen <= 0x202E) ||
           (Zeichen >= 0x2066 && Zeichen <= 0x2069);
}

}  // namespace liedwerk
