// liedwerk-cddbserver DATEI...: a server of the CD database on loopback, for trying and for pictures. It
// offers the given xmcd files for whatever disc is asked for, judges submissions, and prints its name and
// what it is asked. It runs until it is stopped.
#include <cstdio>
#include <string>
#include <vector>

#include "basis/datei.h"
#include "basis/text.h"
#include "werkzeuge/webserver.h"

namespace liedwerk::werkzeuge {
namespace {

struct Scheibe {
    std::string ID;
    std::string Titel;
    std::string Text;
};

// The value of the first line with this key; "" when there is none.
std::string Wert(std::string_view Text, std::string_view Schlüssel) {
    const auto Stelle = Text.find(std::string(Schlüssel) + "=");
    if (Stelle == std::string_view::npos) return {};
    const auto Rest = Text.substr(Stelle + Schlüssel.size() + 1);
    return std::string(Rest.substr(0, Rest.find_first_of("\r\n")));
}

std::vector<Scheibe> Lesen(int Anzahl, char** Namen) {
    std::vector<Scheibe> Alle;
    for (int i = 1; i < Anzahl; ++i) {
        const std::string Text = DateiLesen(Namen[i]).value_or("");
        Alle.push_back({NullenVoran(std::to_string(i), 8), Wert(Text, "DTITLE"), Text});
    }
    return Alle;
}

// "200" for one disc, "210" and a list for several.
std::string Treffer(const std::vector<Scheibe>& Alle) {
    if (Alle.empty()) return "202 No match\r\n";
    if (Alle.size() == 1) return "200 rock " + Alle[0].ID + " " + Alle[0].Titel + "\r\n";
    std::string Text = "210 Found exact matches, list follows (until terminating `.')\r\n";
    for (const Scheibe& Eine : Alle)
        Text += "rock " + Eine.ID + " " + Eine.Titel + "\r\n";
    return Text + ".\r\n";
}

std::string Antwort(const std::vector<Scheibe>& Alle, const std::string& Anfrage) {
    if (Anfrage.starts_with("POST /~cddb/submit.cgi")) return "200 OK, submission has been sent.\r\n";
    if (Anfrage.find("?cmd=cddb+query+") != std::string::npos) return Treffer(Alle);
    for (const Scheibe& Eine : Alle) {
        // Whoever found one disc reads it by the id of the disc in hand.
        if (Alle.size() == 1 || Anfrage.find("+" + Eine.ID + "&") != std::string::npos)
            return "210 rock " + Eine.ID + " CD database entry follows (until terminating `.')\r\n" +
                   Eine.Text + "\r\n.\r\n";
    }
    return "401 rock No such CD entry in database\r\n";
}

}  // namespace
}  // namespace liedwerk::werkzeuge

int main(int Anzahl, char** Namen) {
    using namespace liedwerk::werkzeuge;
    const auto Alle = Lesen(Anzahl, Namen);
    const Server Dienst([&](const std::string& Anfrage, Server::Leitung& Weg) {
        std::printf("%s\n", Anfrage.substr(0, Anfrage.find("\r\n")).c_str());
        std::fflush(stdout);
        Weg.Antworten(Antwort(Alle, Anfrage));
    });
    std::printf("CDDBServer=%s\n", Dienst.Name().c_str());
    std::fflush(stdout);
    for (;;)
        pause();
}
