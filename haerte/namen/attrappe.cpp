// A program that stands for a player or for "xdg-open": appends its arguments, each behind its length, to the
// file "<its own name>.worte", the play list that the last one names to "<its own name>.liste", and ends.
#include <fstream>
#include <string_view>

int main(int Anzahl, char** Worte) {
    const std::string Ich = Worte[0];
    const std::string_view Letztes = Worte[Anzahl - 1];
    if (Letztes.ends_with(".m3u")) {
        std::ifstream Liste(Worte[Anzahl - 1], std::ios::binary);
        std::ofstream(Ich + ".liste", std::ios::binary | std::ios::app) << Liste.rdbuf();
    }
    std::ofstream Ziel(Ich + ".worte", std::ios::binary | std::ios::app);
    for (int i = 1; i < Anzahl; ++i)
        Ziel << std::string_view(Worte[i]).size() << ' ' << Worte[i] << '\n';
    Ziel << "ende\n";
    return Ziel ? 0 : 1;
}
