#include "medien/tagtext.h"

#include "basis/text.h"
#include "index/genres.h"

namespace liedwerk {

std::string TextBereinigen(std::string_view Text, bool ZeilenEntfernen) {
    std::string Sauber;
    Sauber.reserve(Text.size());
    for (const char Zeichen : Text) {
        const bool Zeilenende = Zeichen == '\n' || Zeichen == '\r';
        if (Zeichen != '\0' && Zeichen != '\1' && !(ZeilenEntfernen && Zeilenende)) Sauber.push_back(Zeichen);
    }
    Sauber.resize(RechtsKürzen(Sauber).size());
    return Sauber;
}

void GenreTextSetzen(const std::string& Text, Datensatz& Satz) {
    const auto Nummer = GenreNummer(Text);
    Satz.Genre = Nummer.value_or(KeinGenre);
    Satz.V2Genre = Nummer ? std::string() : Text;
}

}  // namespace liedwerk
