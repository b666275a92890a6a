#include "werkzeuge/wortschatz.h"

#include <array>

namespace liedwerk::werkzeug {
namespace {

constexpr std::array<std::string_view, 48> Vornamen = {
    "Anna",  "Bärbel", "Carla", "Doris",  "Edda",   "Frauke", "Günther", "Hanna",    "Ilse",   "Jürgen",
    "Karla", "Lukas",  "Maria", "Nora",   "Oskar",  "Petra",  "Quirin",  "Rosa",     "Sören",  "Theo",
    "Ulla",  "Vera",   "Willi", "Xaver",  "Yvonne", "Zoë",    "André",   "Béatrice", "Clara",  "Dieter",
    "Emil",  "Fritz",  "Greta", "Heinz",  "Inga",   "Jonas",  "Käthe",   "Lena",     "Moritz", "Nele",
    "Olaf",  "Paula",  "René",  "Sabine", "Thilo",  "Uwe",    "Viola",   "Wenzel"};
constexpr std::array<std::string_view, 48> Nachnamen = {
    "Ahrens",     "Böttcher", "Claasen",  "Dörfler", "Ehlers", "Feldmann", "Größler",   "Hübner",
    "Iversen",    "Jäger",    "Köhler",   "Lüdtke",  "Möller", "Neumann",  "Oelze",     "Pfänder",
    "Quandt",     "Röschen",  "Schäfer",  "Thießen", "Uhlig",  "Vößing",   "Wöhler",    "Zschiesche",
    "Alster",     "Bergmann", "Carstens", "Dreyer",  "Engel",  "Frisch",   "Gärtner",   "Hartwig",
    "Immel",      "Jansen",   "Krüger",   "Lehmann", "Maaß",   "Nölke",    "Ostermann", "Paulsen",
    "Rademacher", "Sommer",   "Töpfer",   "Unger",   "Vogel",  "Winter",   "Ziegler",   "Örtel"};
constexpr std::array<std::string_view, 40> Eigenschaften = {
    "alte",    "blaue", "dunkle", "ferne", "frühe",  "goldene",  "graue",     "große",
    "grüne",   "heiße", "helle",  "kalte", "kleine", "laute",    "leere",     "leise",
    "lange",   "müde",  "neue",   "rote",  "runde",  "sanfte",   "schöne",    "schnelle",
    "schräge", "späte", "stille", "süße",  "tiefe",  "traurige", "warme",     "weite",
    "weiße",   "wilde", "letzte", "erste", "halbe",  "fremde",   "heimliche", "gläserne"};
constexpr std::array<std::string_view, 64> Dinge = {
    "Abende",    "Äpfel",   "Bäume",   "Berge",  "Brücken", "Briefe",  "Brunnen",  "Dächer",
    "Farben",    "Fenster", "Feuer",   "Flüsse", "Flügel",  "Fragen",  "Gärten",   "Gassen",
    "Geister",   "Hände",   "Häfen",   "Häuser", "Herzen",  "Hügel",   "Inseln",   "Jahre",
    "Karten",    "Kerzen",  "Könige",  "Kreise", "Küsten",  "Lichter", "Lieder",   "Märchen",
    "Meere",     "Monde",   "Morgen",  "Nächte", "Nebel",   "Nelken",  "Öfen",     "Pfade",
    "Plätze",    "Quellen", "Räder",   "Regen",  "Reisen",  "Rosen",   "Schatten", "Schiffe",
    "Schlüssel", "Segel",   "Spiegel", "Sterne", "Steine",  "Stimmen", "Straßen",  "Stürme",
    "Tage",      "Träume",  "Türme",   "Ufer",   "Vögel",   "Wälder",  "Wellen",   "Züge"};
constexpr std::array<std::string_view, 24> Orte = {
    "am Fluss",   "im Regen",     "über der Stadt",   "ohne Namen",     "bei Nacht",    "hinter dem Deich",
    "im Süden",   "aus Papier",   "nach Mitternacht", "vor dem Tor",    "unter Wasser", "zwischen den Jahren",
    "im Oktober", "für morgen",   "auf dem Dach",     "von früher",     "im Kopf",      "am Ende der Straße",
    "mit dir",    "in der Küche", "um halb vier",     "gegen den Wind", "im Nebel",     "zurück"};
constexpr std::array<std::string_view, 8> Fremde = {"Северный ветер", "Πέτρινα χρόνια", "Тихий дом",
                                                    "Zażółć gęśl",    "Řeka a most",    "東の風",
                                                    "Őszi fény",      "Белые ночи"};
constexpr std::array<std::string_view, 6> Zusätze = {" (Live)",   " (Remix)",      " [Demo]",
                                                     " (Teil 2)", " (Radio Edit)", " - Finale"};
constexpr std::array<std::string_view, 8> Kommentare = {"aufgenommen von der Schallplatte",
                                                        "Mitschnitt",
                                                        "Geschenk von Jürgen",
                                                        "bitte noch einmal einlesen",
                                                        "Lieblingslied",
                                                        "vom Flohmarkt",
                                                        "2. Fassung",
                                                        "Rauschen am Anfang"};
constexpr std::array<Genrewahl, 12> Genres = {{{0, "Blues"},
                                               {1, "Classic Rock"},
                                               {2, "Country"},
                                               {8, "Jazz"},
                                               {9, "Metal"},
                                               {13, "Pop"},
                                               {17, "Rock"},
                                               {20, "Alternative"},
                                               {24, "Soundtrack"},
                                               {26, "Ambient"},
                                               {32, "Classical"},
                                               {80, "Folk"}}};

void Anhängen(std::string& Ziel, std::string_view Erstes, std::string_view Zweites) {
    Ziel.append(Erstes).append(1, ' ').append(Zweites);
}

// The adjective as the first word of a name.
std::string Großgeschrieben(std::string_view Wort) {
    std::string Ergebnis(Wort);
    if (Ergebnis.front() >= 'a' && Ergebnis.front() <= 'z') {
        Ergebnis.front() = static_cast<char>(Ergebnis.front() - 'a' + 'A');
    }
    return Ergebnis;
}

}  // namespace

std::string KünstlerBilden(Zufall& Würfel) {
    if (Würfel.Zahl(1, 200) == 1) return std::string(Würfel.Aus(Fremde));
    std::string Name;
    switch (Würfel.Zahl(1, 4)) {
        case 1:
            Anhängen(Name, "Die", Großgeschrieben(Würfel.Aus(Eigenschaften)));
            Anhängen(Name, "n", Würfel.Aus(Dinge));
            break;
        case 2:
            Anhängen(Name, Würfel.Aus(Dinge), "&");
            Anhängen(Name, "", Würfel.Aus(Dinge));
            break;
        default:
            Anhängen(Name, Würfel.Aus(Vornamen), Würfel.Aus(Nachnamen));
    }
    return Name;
}

std::string AlbumBilden(Zufall& Würfel) {
    std::string Name = Großgeschrieben(Würfel.Aus(Eigenschaften));
    Anhängen(Name, "", Würfel.Aus(Dinge));
    if (Würfel.Trifft(25)) Anhängen(Name, "", Würfel.Aus(Orte));
    return Name;
}

std::string TitelBilden(Zufall& Würfel) {
    std::string Name;
    if (Würfel.Trifft(60)) Name = Großgeschrieben(Würfel.Aus(Eigenschaften)) + ' ';
    Name += Würfel.Aus(Dinge);
    if (Würfel.Trifft(60)) Anhängen(Name, "", Würfel.Aus(Orte));
    if (Würfel.Trifft(8)) Name += Würfel.Aus(Zusätze);
    return Name;
}

std::string KommentarBilden(Zufall& Würfel) {
    return std::string(Würfel.Aus(Kommentare));
}

std::string VerlagBilden(Zufall& Würfel) {
    return std::string(Würfel.Aus(Nachnamen)) + " Tonträger";
}

Genrewahl GenreWählen(Zufall& Würfel) {
    return Würfel.Aus(Genres);
}

std::string Namensteil(std::string Text) {
    for (char& Zeichen : Text) {
        if (Zeichen == '/' || Zeichen == '\\' || Zeichen == ':' || Zeichen == '*' || Zeichen == '?' ||
            Zeichen == '"') {
            Zeichen = '_';
        }
    }
    return Text;
}

}  // namespace liedwerk::werkzeug
