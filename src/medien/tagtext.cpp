#include "medien/tagtext.h"

#include "basis/text.h"

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

}  // namespace liedwerk
