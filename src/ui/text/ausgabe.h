// Text for a person on a terminal: standard output collected, control characters made visible, columns
// aligned.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// Collects bytes and hands them to a stream in large pieces.
class Ausgabe {
  public:
    explicit Ausgabe(std::FILE* Wohin) : Strom(Wohin) {}
    Ausgabe(const Ausgabe&) = delete;
    Ausgabe& operator=(const Ausgabe&) = delete;
    ~Ausgabe() { Fertig(); }
    void Schreiben(std::string_view Bytes);
    // Hands over the rest; false when anything could not be written.
    bool Fertig();

  private:
    std::FILE* Strom;
    std::string Puffer;
    bool Gelungen = true;
};

// The text with control characters, characters that turn the writing direction and broken bytes in a visible
// form, so that no file name or tag commands the terminal. MitZeilen lets line feeds pass.
std::string Sichtbar(std::string_view Text, bool MitZeilen = false);

// The columns that a visible text takes on a terminal: 0 for combining marks, 2 for East Asian wide
// characters.
std::size_t Anzeigebreite(std::string_view Text);

// Rows under heads. The first rows are kept back to find the widths; later longer values only push their row.
class Tabelle {
  public:
    Tabelle(Ausgabe& Wohin, std::vector<std::string> Köpfe);
    void Zeile(std::vector<std::string> Werte);
    // Writes what is still kept back.
    void Fertig();

  private:
    void ZeileSchreiben(const std::vector<std::string>& Werte);

    Ausgabe& Ziel;
    std::vector<std::size_t> Breiten;
    std::vector<std::vector<std::string>> Wartende;
    bool Läuft = false;
};

}  // namespace liedwerk
