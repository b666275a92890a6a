// UTF-8 text: walking, case, comparing, cutting.
//
// Comparison "without regard to case" folds Unicode simple case for Latin, Greek and Cyrillic letters and
// leaves every other character as it is. Bytes that are no valid UTF-8 (POSIX paths may hold any) stand for
// themselves.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// One code point taken from Text at Stelle (0-based byte offset, moved behind it). A byte that starts no
// valid UTF-8 sequence gives 0xDC00 + byte, which no valid text can hold.
char32_t ZeichenLesen(std::string_view Text, std::size_t& Stelle);

// True for a code of ZeichenLesen that stands for a byte of no valid character (0xDC80 to 0xDCFF).
constexpr bool IstBruchbyte(char32_t Zeichen) {
    return Zeichen >= 0xDC80 && Zeichen <= 0xDCFF;
}

// Appends a code point as UTF-8; 0xDC80 to 0xDCFF, the broken bytes of ZeichenLesen, come back as that byte.
void ZeichenAnhängen(std::string& Text, char32_t Zeichen);

// True when the whole text is valid UTF-8 (no overlong forms, no surrogates, at most U+10FFFF).
bool IstUtf8(std::string_view Text);

// True when every byte is below 80 hex: such a text is the same in UTF-8 and in every code page.
bool IstAscii(std::string_view Text);

// Number of characters of a text; a broken byte counts as one.
std::size_t ZeichenAnzahl(std::string_view Text);

// The first or last Anzahl characters of a text, all of it when it is shorter.
std::string_view LinkerTeil(std::string_view Text, std::size_t Anzahl);
std::string_view RechterTeil(std::string_view Text, std::size_t Anzahl);

// Simple case folding of one character and of a text; folded texts compare by their bytes.
char32_t ZeichenFalten(char32_t Zeichen);
std::string Falten(std::string_view Text);
// Appends the folded text to Ziel; the fast way for long runs of ASCII.
void FaltenAnhängen(std::string& Ziel, std::string_view Text);

// Simple lower and upper case, same letters as folding.
std::string Kleinbuchstaben(std::string_view Text);
std::string Großbuchstaben(std::string_view Text);
// Appends the text in lower or upper case to Ziel.
void KleinbuchstabenAnhängen(std::string& Ziel, std::string_view Text);
void GroßbuchstabenAnhängen(std::string& Ziel, std::string_view Text);

// Equality and position (0-based byte offset in Text, npos when absent) without regard to case.
bool GleichOhneGroß(std::string_view A, std::string_view B);
std::size_t PositionOhneGroß(std::string_view Text, std::string_view Teil, std::size_t Ab = 0);
bool EndetMitOhneGroß(std::string_view Text, std::string_view Ende);
bool BeginntMitOhneGroß(std::string_view Text, std::string_view Anfang);

// Cuts a text at each occurrence of Trenner; "" gives one empty piece.
std::vector<std::string> Teilen(std::string_view Text, std::string_view Trenner);
// Joins the pieces with Trenner between them.
std::string Verbinden(const std::vector<std::string>& Teile, std::string_view Trenner);
// Replaces every occurrence of Alt (not empty), left to right, not looking into what was put in.
std::string Ersetzen(std::string_view Text, std::string_view Alt, std::string_view Neu);

// The text without blanks at its right end, or at both ends.
std::string_view RechtsKürzen(std::string_view Text);
std::string_view Kürzen(std::string_view Text);

// Pads with "0" on the left up to Breite characters; a longer text is left as it is.
std::string NullenVoran(std::string_view Text, std::size_t Breite);

}  // namespace liedwerk
