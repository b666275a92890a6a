// The rules of the source tree: who may include whom, what stays in plattform/, and how files look.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "basis/datei.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

namespace fs = std::filesystem;

// From the ground up; a folder may include what stands lower, and itself. Folders of one step do not know
// each other.
const std::map<std::string, int> Schichten = {
    {"basis", 0},   {"plattform", 1}, {"index", 2},  {"termine", 3},   {"suche", 3}, {"cd", 3},
    {"dateien", 4}, {"medien", 5},    {"export", 6}, {"abspielen", 7}, {"core", 8},  {"ui", 9},
};

constexpr std::size_t HöchsteZeilenzahl = 600;

bool LiegtIn(const std::string& Pfad, std::string_view Ordner) {
    return Pfad.rfind(Ordner, 0) == 0;
}

std::string ErsterTeil(const std::string& Pfad) {
    return Pfad.substr(0, Pfad.find('/'));
}

// What is wrong with an include line of a file; empty when nothing is. Pfad is relative to src/.
std::string EinbindungPrüfen(const std::string& Pfad, const std::string& Name, bool InKlammern) {
    const bool QtErlaubt = LiegtIn(Pfad, "ui/qt/") || LiegtIn(Pfad, "plattform/qt/");
    if (InKlammern) {
        if (Name.front() == 'Q' && !QtErlaubt) return "Qt header <" + Name + ">";
        if (EndetMitOhneGroß(Name, ".h") && !LiegtIn(Pfad, "plattform/"))
            return "system header <" + Name + ">";
        return {};
    }
    if (Name.find('/') == std::string::npos) return "include without folder: " + Name;
    const auto Eigene = Schichten.find(ErsterTeil(Pfad));
    const auto Andere = Schichten.find(ErsterTeil(Name));
    if (Eigene == Schichten.end()) return "folder that no layer names";
    if (Andere == Schichten.end()) return "include of an unknown folder: " + Name;
    if (Eigene != Andere && Andere->second >= Eigene->second) return "include against the layers: " + Name;
    if (!QtErlaubt && (LiegtIn(Name, "ui/qt/") || LiegtIn(Name, "plattform/qt/")))
        return "way to Qt: " + Name;
    return {};
}

// The faults of a source file below src/.
std::vector<std::string> QuelltextPrüfen(const std::string& Pfad, std::string_view Inhalt) {
    static const std::regex Einbindung(R"re(^\s*#\s*include\s*(["<])([^">]+)[">])re");
    static const std::regex Systemmakro(
        R"re(^\s*#.*\b(_WIN32|WIN32|_MSC_VER|__linux__|__unix__|__APPLE__|Q_OS_\w+)\b)re");
    std::vector<std::string> Fehler;
    for (const auto& Zeile : Teilen(Inhalt, "\n")) {
        if (Zeile.find('#') == std::string::npos) continue;
        std::smatch Fund;
        if (std::regex_search(Zeile, Fund, Einbindung)) {
            auto Grund = EinbindungPrüfen(Pfad, Fund[2], Fund[1] == "<");
            if (!Grund.empty()) Fehler.push_back(std::move(Grund));
        } else if (!LiegtIn(Pfad, "plattform/") && std::regex_search(Zeile, Fund, Systemmakro)) {
            Fehler.push_back("platform macro " + Fund[1].str());
        }
    }
    return Fehler;
}

// The faults in the form of any source file.
std::vector<std::string> FormPrüfen(std::string_view Inhalt) {
    std::vector<std::string> Fehler;
    if (!IstUtf8(Inhalt)) Fehler.emplace_back("no UTF-8");
    for (std::size_t Stelle = 0; Stelle < Inhalt.size();) {
        const char32_t Zeichen = ZeichenLesen(Inhalt, Stelle);
        if (Zeichen >= 0x0300 && Zeichen <= 0x036F) {
            Fehler.emplace_back("combining mark: the text is not in NFC");
            break;
        }
    }
    const auto Zeilen = static_cast<std::size_t>(std::count(Inhalt.begin(), Inhalt.end(), '\n'));
    if (Zeilen > HöchsteZeilenzahl && Inhalt.find("Long because: ") == std::string_view::npos) {
        Fehler.push_back(std::to_string(Zeilen) + " lines without a line \"Long because: ...\"");
    }
    return Fehler;
}

bool NameErlaubt(const std::string& Name) {
    static const std::regex Form("[a-z0-9_]+(\\.[a-z0-9]+)*");
    return Name == "CMakeLists.txt" || std::regex_match(Name, Form);
}

// Every file below a folder of the tree: path relative to the folder, and content.
std::vector<std::pair<std::string, std::string>> DateienIn(std::string_view Ordner) {
    const fs::path Wurzel = fs::path(LIEDWERK_WURZEL) / Ordner;
    std::vector<std::pair<std::string, std::string>> Ergebnis;
    if (!fs::exists(Wurzel)) return Ergebnis;
    for (const auto& Eintrag : fs::recursive_directory_iterator(Wurzel)) {
        if (!Eintrag.is_regular_file()) continue;
        Ergebnis.emplace_back(Eintrag.path().lexically_relative(Wurzel).string(),
                              DateiLesen(Eintrag.path().string()).value_or(""));
    }
    return Ergebnis;
}

bool IstQuelltext(const std::string& Pfad) {
    return Pfad.ends_with(".cpp") || Pfad.ends_with(".h");
}

TEST(Schichten, JedeEinbindungFolgtDerOrdnung) {
    const auto Dateien = DateienIn("src");
    ASSERT_FALSE(Dateien.empty());
    for (const auto& [Pfad, Inhalt] : Dateien) {
        if (!IstQuelltext(Pfad)) continue;
        for (const auto& Fehler : QuelltextPrüfen(Pfad, Inhalt))
            ADD_FAILURE() << "src/" << Pfad << ": " << Fehler;
    }
}

TEST(Form, NamenZeichenUndLängen) {
    for (const std::string Ordner : {"src", "tests", "benchmarks", "werkzeuge", "haerte"}) {
        for (const auto& [Pfad, Inhalt] : DateienIn(Ordner)) {
            for (const auto& Teil : Teilen(Pfad, "/")) {
                EXPECT_TRUE(NameErlaubt(Teil)) << Ordner << "/" << Pfad << ": name is not lower-case ASCII";
            }
            if (!IstQuelltext(Pfad)) continue;
            for (const auto& Fehler : FormPrüfen(Inhalt))
                ADD_FAILURE() << Ordner << "/" << Pfad << ": " << Fehler;
        }
    }
}

// Nothing is asked of the web but through the port that the CD database uses, and that a person has given an
// address for.
TEST(Regeln, NurDerHttpAnschlussÖffnetVerbindungen) {
    static const std::regex Netz(
        R"re(#\s*include\s*<(QNetwork|QTcp|QUdp|QSsl|QAbstractSocket|QHost|netdb|netinet|curl)|AF_INET)re");
    int Stellen = 0;
    for (const auto& [Pfad, Inhalt] : DateienIn("src")) {
        if (!IstQuelltext(Pfad) || !std::regex_search(Inhalt, Netz)) continue;
        EXPECT_TRUE(LiegtIn(Pfad, "plattform/qt/http.")) << "src/" << Pfad << " reaches for the web";
        ++Stellen;
    }
    EXPECT_GT(Stellen, 0) << "the port to the web has moved";
}

TEST(Regeln, VerstößeWerdenErkannt) {
    const auto Anzahl = [](const std::string& Pfad, std::string_view Zeile) {
        return QuelltextPrüfen(Pfad, Zeile).size();
    };
    EXPECT_EQ(Anzahl("suche/a.cpp", "#include \"index/b.h\"\n#include \"suche/c.h\"\n#include <vector>\n"),
              0U);
    EXPECT_EQ(Anzahl("index/a.h", "#include \"suche/b.h\""), 1U);
    EXPECT_EQ(Anzahl("cd/a.h", "  #  include \"termine/b.h\""), 1U);
    EXPECT_EQ(Anzahl("basis/a.h", "#include \"b.h\""), 1U);
    EXPECT_EQ(Anzahl("ui/text/a.cpp", "#include <QString>"), 1U);
    EXPECT_EQ(Anzahl("ui/text/a.cpp", "#include \"ui/qt/b.h\""), 1U);
    EXPECT_EQ(Anzahl("ui/qt/a.cpp", "#include <QString>\n#include \"core/b.h\""), 0U);
    EXPECT_EQ(Anzahl("core/a.cpp", "#include <unistd.h>"), 1U);
    EXPECT_EQ(Anzahl("core/a.cpp", "#if defined(_WIN32)\n#ifdef Q_OS_LINUX"), 2U);
    EXPECT_EQ(Anzahl("plattform/linux/a.cpp", "#include <unistd.h>\n#ifdef __linux__"), 0U);
    EXPECT_EQ(FormPrüfen("u\u0308").size() + FormPrüfen("\xE4").size(), 2U);
    EXPECT_EQ(FormPrüfen(std::string(601, '\n')).size(), 1U);
    EXPECT_TRUE(NameErlaubt("aufraeumen.cpp") && !NameErlaubt("Aufräumen.cpp") && !NameErlaubt("Liste.h"));
}

}  // namespace
}  // namespace liedwerk
