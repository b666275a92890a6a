// Every writing system call of every way of saving and removing tags fails in turn, or is the last one before
// the process dies: the file is the old or the new one afterwards, and nothing of ours lies beside it unsaid.
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "basis/mehrfachnamen.h"
#include "basis/text.h"
#include "medien/id3v1.h"
#include "medien/id3v2.h"
#include "medien/tagdatei.h"
#include "medien/tagrettung.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "tests/medien/umgebung.h"
#include "werkzeuge/tagbau.h"

namespace {

enum class Art { Keine, Einmal, VonDaAn, Halb, Absturz };
Art Störung = Art::Keine;
int Aufrufe = 0;       // writing calls since the counting began
int GestörterRuf = 0;  // 1-based
int Leseruf = 0;       // counts down to the read that fails

// Counts a writing call; true when it is to fail.
bool Gestört() {
    if (Störung == Art::Keine) return false;
    ++Aufrufe;
    if (Aufrufe < GestörterRuf || (Aufrufe > GestörterRuf && Störung != Art::VonDaAn)) return false;
    if (Störung == Art::Absturz) ::_exit(0);
    errno = EIO;
    return true;
}
// A write that may also stop in its midst, before the next one finds the disk full.
template <class Rufen>
ssize_t Geschrieben(std::size_t Anzahl, Rufen&& Schreiben) {
    if (Störung == Art::Halb && Aufrufe + 1 == GestörterRuf && Anzahl > 1) {
        ++Aufrufe;
        ++GestörterRuf;
        return Schreiben(Anzahl / 2);
    }
    return Gestört() ? -1 : Schreiben(Anzahl);
}

}  // namespace

// The program's own definitions come before those of the C library.
extern "C" {
ssize_t write(int Griff, const void* Bytes, size_t Anzahl) {
    return Geschrieben(Anzahl, [&](size_t n) { return syscall(SYS_write, Griff, Bytes, n); });
}
ssize_t pwrite(int Griff, const void* Bytes, size_t Anzahl, off_t Stelle) {
    return Geschrieben(Anzahl, [&](size_t n) { return syscall(SYS_pwrite64, Griff, Bytes, n, Stelle); });
}
ssize_t pread(int Griff, void* Bytes, size_t Anzahl, off_t Stelle) {
    if (Leseruf > 0 && --Leseruf == 0) {
        errno = EIO;
        return -1;
    }
    return syscall(SYS_pread64, Griff, Bytes, Anzahl, Stelle);
}
int fallocate(int Griff, int Weise, off_t Stelle, off_t Länge) {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_fallocate, Griff, Weise, Stelle, Länge));
}
// Nothing here survives a loss of power, so the disk need not be waited for.
int fsync(int) {
    return Gestört() ? -1 : 0;
}
int ftruncate(int Griff, off_t Länge) noexcept {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_ftruncate, Griff, Länge));
}
int rename(const char* Alt, const char* Neu) noexcept {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_rename, Alt, Neu));
}
int unlink(const char* Name) noexcept {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_unlink, Name));
}
int futimens(int Griff, const timespec* Zeiten) noexcept {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_utimensat, Griff, nullptr, Zeiten, 0));
}
int fchmod(int Griff, mode_t Rechte) noexcept {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_fchmod, Griff, Rechte));
}
}

namespace liedwerk {
namespace {

using namespace tagbau;
namespace fs = std::filesystem;

struct Weg {
    std::string_view Name;
    std::string Start;
    std::function<bool(const std::string& Pfad, std::string& Meldung, const Schreibrahmen& Rahmen)> Ändern;
};

Datensatz Fülle(std::size_t Länge) {
    Datensatz Satz;
    Id3v2Leeren(Satz);
    Satz.Titel = Satz.V2Titel = std::string(Länge, 't');
    return Satz;
}

// Every kind of tag in place, growing, shrinking and removed; the sound is more than one block long.
std::vector<Weg> Wege() {
    const std::string Ton = std::string((std::size_t{1} << 20U) + 9, '\x81') + MpegRahmen({}, 3);
    const std::string V1 = Id3v1Block({.Titel = "alt"});
    const std::string V2 = Id3v2Tag(3, Id3v2Textrahmen("TIT2", "alt"), 300);
    const std::string Text = LyricsV2(LyricsFeld("LYR", std::string(100, 'l')));
    const auto Id3v1 = [](auto& Pfad, auto& Meldung, auto&) {
        return Id3v1Schreiben(Pfad, Id3v1BlockBilden(Fülle(9)), Meldung);
    };
    const auto Id3v2 = [](std::size_t Länge, bool Modern) {
        return [=](auto& Pfad, auto& Meldung, auto& Rahmen) {
            return Id3v2Schreiben(Pfad, Fülle(Länge), {.TAGsModern = Modern}, Meldung, Rahmen);
        };
    };
    const auto Lyrics = [](std::size_t Länge) {
        return [=](auto& Pfad, auto& Meldung, auto& Rahmen) {
            return LyricsSchreiben(Pfad, std::string(Länge, 'm'), Meldung, Rahmen);
        };
    };
    const auto Ohne = [](Tagblock Block) {
        return [=](auto& Pfad, auto& Meldung, auto& Rahmen) {
            return TagAusDateiEntfernen(Pfad, Block, {}, Meldung, Rahmen);
        };
    };
    return {
        {"ID3v1 anhängen", V2 + Ton, Id3v1},
        {"ID3v1 am Ort", V2 + Ton + Text + V1, Id3v1},
        {"ID3v1 entfernen", V2 + Ton + Text + V1, Ohne(Tagblock::Id3v1)},
        {"ID3v2 neu", Ton + V1, Id3v2(50, false)},
        {"ID3v2 am Ort", V2 + Ton, Id3v2(50, false)},
        {"ID3v2 wächst", V2 + Ton + V1, Id3v2(5000, false)},
        {"ID3v2 nicht vorn", "Vorspann" + V2 + Ton, Id3v2(5000, false)},
        {"ID3v2 wächst, moderner Weg", V2 + Ton + V1, Id3v2(5000, true)},
        {"ID3v2 entfernen", V2 + Ton + V1, Ohne(Tagblock::Id3v2)},
        {"Lyrics anhängen", Ton, Lyrics(50)},
        {"Lyrics wächst", Ton + Text + V1, Lyrics(500)},
        {"Lyrics schrumpft", Ton + Text + V1, Lyrics(20)},
        {"Lyrics entfernen", Ton + Text + V1, Ohne(Tagblock::Lyrics)},
    };
}

class Störungen : public Medien {
  protected:
    Störungen() {
        fs::create_directory(Programmordner);
        Zeit.Punkt = AusKalendersekunden(::time(nullptr));
    }
    std::string Bereitlegen(const Weg& Einer, bool MehrereNamen) {
        fs::remove(Zweiter);
        const std::string Pfad = Anlegen("t.mp3", Einer.Start);
        if (MehrereNamen) fs::create_hard_link(Pfad, Zweiter);
        return Pfad;
    }
    bool Stören(const Weg& Einer, const std::string& Pfad, Art Wie, int Ruf) {
        Meldung.clear();
        GestörterRuf = Ruf;
        Aufrufe = 0;
        Störung = Wie;
        const bool Gelungen = Einer.Ändern(Pfad, Meldung, {{}, Programmordner.string()});
        Störung = Art::Keine;
        return Gelungen;
    }
    // The writing process dies before that call.
    void Abstürzen(const Weg& Einer, const std::string& Pfad, int Ruf) {
        const pid_t Kind = ::fork();
        if (Kind == 0) {
            Stören(Einer, Pfad, Art::Absturz, Ruf);
            ::_exit(1);
        }
        int Ende = 0;
        ASSERT_EQ(::waitpid(Kind, &Ende, 0), Kind);
    }
    // Leaves a torn file with two names that nobody else has touched; gives its path.
    std::string Zerreißen(const Weg& Einer, std::string& Neu) {
        std::string Pfad = Bereitlegen(Einer, true);
        EXPECT_TRUE(Stören(Einer, Pfad, Art::Einmal, 1000)) << Meldung;
        Neu = Inhalt(Pfad);
        for (int Ruf = 1; Ruf <= Aufrufe; ++Ruf) {
            Aufräumen();
            Pfad = Bereitlegen(Einer, true);
            Altern(Pfad, 400);
            Abstürzen(Einer, Pfad, Ruf);
            const std::string Jetzt = Inhalt(Pfad);
            if (Jetzt != Neu && Jetzt != Einer.Start && GleicheÄnderungszeit(Pfad, TagGesichertname(Pfad)))
                return Pfad;
        }
        ADD_FAILURE() << "never torn";
        return Pfad;
    }
    void Starten() {
        UnterbrocheneVollenden(Programmordner.string(), Systemordnerleser(), Person, Lauf, Weise);
    }
    static void Altern(const std::string& Pfad, int Tage) {
        const timespec Zeiten[2] = {{0, UTIME_OMIT}, {::time(nullptr) - Tage * 86400, 5}};
        ASSERT_EQ(::utimensat(AT_FDCWD, Pfad.c_str(), Zeiten, 0), 0);
    }
    std::string Marke(const std::string& Pfad) const {
        return (Programmordner / SchreibmarkeName(Pfad)).string();
    }
    static std::string Inhalt(const std::string& Pfad) { return DateiLesen(Pfad).value_or("(fehlt)"); }
    // What lies beside the file and its other name.
    std::vector<std::string> Hilfsdateien() const {
        std::vector<std::string> Namen;
        for (const auto& Eintrag : fs::directory_iterator(Ordner)) {
            const std::string Pfad = Eintrag.path().string();
            if (Pfad.ends_with("~lwitmp") || Pfad.ends_with("~lwineu")) Namen.push_back(Pfad);
        }
        return Namen;
    }
    void Aufräumen() {
        for (const auto& Wo : {Ordner, Programmordner}) {
            for (const auto& Eintrag : fs::directory_iterator(Wo))
                if (Eintrag.is_regular_file()) fs::remove(Eintrag);
        }
    }
    fs::path Programmordner = Ordner / "programm";
    fs::path Zweiter = Ordner / "zweiter.mp3";
    std::string Meldung;
    speicher::Person Person;
    Rettung Lauf{Zeit};
    Schrittlauf Weise;
};

TEST_F(Störungen, NachJedemFehlschlagStehtDieAlteOderDieNeueDateiDa) {
    for (const Weg& Einer : Wege()) {
        for (const bool MehrereNamen : {false, true}) {
            SCOPED_TRACE(std::string(Einer.Name) + (MehrereNamen ? ", zwei Namen" : ""));
            std::string Pfad = Bereitlegen(Einer, MehrereNamen);
            ASSERT_TRUE(Stören(Einer, Pfad, Art::Einmal, 1000)) << Meldung;
            const int Anzahl = Aufrufe;
            const std::string Neu = Inhalt(Pfad);
            ASSERT_GE(Anzahl, 2);
            for (const Art Wie : {Art::Einmal, Art::VonDaAn, Art::Halb}) {
                for (int Ruf = 1; Ruf <= Anzahl; ++Ruf) {
                    SCOPED_TRACE(std::to_string(static_cast<int>(Wie)) + "/" + std::to_string(Ruf));
                    Pfad = Bereitlegen(Einer, MehrereNamen);
                    const bool Gelungen = Stören(Einer, Pfad, Wie, Ruf);
                    EXPECT_EQ(Gelungen, Meldung.empty()) << Meldung;
                    for (const std::string& Rest : Hilfsdateien())
                        EXPECT_NE(Meldung.find(Rest), std::string::npos) << Meldung;
                    // A file with two names may be torn, then its whole content lies beside it.
                    Person.Antworten = {Antwort::Ja};
                    if (!Gelungen) SpeichernVollenden(Pfad, Person, Lauf, {});
                    const std::string Danach = Inhalt(Pfad);
                    EXPECT_TRUE(Danach == Neu || (!Gelungen && Danach == Einer.Start)) << Danach.size();
                    EXPECT_EQ(fs::hard_link_count(Pfad), MehrereNamen ? 2U : 1U);
                    Aufräumen();
                }
            }
        }
    }
}

TEST_F(Störungen, WasNichtGelesenWerdenKannÄndertNichts) {
    const Datensatz Bekannt = Lesen(Wege()[4].Start + Id3v1Block({.Titel = "v1"}));
    for (const Weg& Einer : Wege()) {
        const std::string Pfad = Bereitlegen(Einer, false);
        for (const bool Schreiben : {true, false}) {
            for (int Ruf = 1;; ++Ruf) {
                SCOPED_TRACE(std::string(Einer.Name) + "/" + std::to_string(Ruf));
                Meldung.clear();
                Leseruf = Ruf;
                if (Schreiben) {
                    const bool Gelungen = Einer.Ändern(Pfad, Meldung, {});
                    if (std::exchange(Leseruf, 0) > 0) break;
                    EXPECT_TRUE(!Gelungen && !Meldung.empty());
                    EXPECT_EQ(Inhalt(Pfad) == Einer.Start, true);
                    continue;
                }
                auto Satz = MedienDatenLesen(Umgebung, Pfad, Bekannt, {.Code = Lesecode::Lesen("1111")});
                if (std::exchange(Leseruf, 0) > 0) break;
                EXPECT_TRUE(Satz.Lesegestört && !Satz.V1Gelesen);
                Satz.V1Gelesen = Satz.Id3v2Gelesen = Satz.LyricsGelesen = true;
                Satz.KopfGefunden = Bekannt.KopfGefunden;
                Satz.Lesegestört = false;
                EXPECT_TRUE(Satz == Bekannt);
            }
        }
    }
}

TEST_F(Störungen, NachJedemAbsturzMachtDerNächsteStartDieDateiGanz) {
    int Zerrissene = 0;
    for (const Weg& Einer : Wege()) {
        for (const bool MehrereNamen : {false, true}) {
            SCOPED_TRACE(std::string(Einer.Name) + (MehrereNamen ? ", zwei Namen" : ""));
            std::string Pfad = Bereitlegen(Einer, MehrereNamen);
            ASSERT_TRUE(Stören(Einer, Pfad, Art::Einmal, 1000)) << Meldung;
            const int Anzahl = Aufrufe;
            const std::string Neu = Inhalt(Pfad);
            for (int Ruf = 1; Ruf <= Anzahl; ++Ruf) {
                Pfad = Bereitlegen(Einer, MehrereNamen);
                Abstürzen(Einer, Pfad, Ruf);
                const std::string Rest = TagGesichertname(Pfad);
                const bool Fraglich = DateiExistiert(Rest) && !GleicheÄnderungszeit(Pfad, Rest);
                const bool MitKopie = DateiExistiert(TagTemporärname(Pfad));
                const std::string Vorher = Inhalt(Pfad);
                const bool Ganz = Vorher == Neu || Vorher == Einer.Start;
                EXPECT_TRUE(Ganz || MehrereNamen);
                Zerrissene += Ganz || Fraglich ? 0 : 1;
                Person.Meldungen.clear();
                Person.Gefragt.clear();
                Person.Antworten = {Antwort::Ja};
                // By the mark at every second time, else by the next read alone.
                if (Ruf % 2 == 0) {
                    Starten();
                    EXPECT_TRUE(fs::is_empty(Programmordner));
                } else {
                    SpeichernVollenden(Pfad, Person, Lauf, {});
                }
                const std::string Danach = Inhalt(Pfad);
                EXPECT_TRUE(Danach == Neu || Danach == Einer.Start) << Ruf;
                EXPECT_EQ(Danach != Vorher || MitKopie, !Person.Meldungen.empty() && Vorher != Neu) << Ruf;
                EXPECT_EQ(Person.Gefragt.empty(), !Fraglich) << Ruf;
                EXPECT_TRUE(Hilfsdateien().empty()) << Ruf;
                Aufräumen();
            }
        }
    }
    EXPECT_GE(Zerrissene, 8) << "restored unasked, once for each way that writes a file with two names anew";
}

TEST_F(Störungen, WasEinAnderesProgrammSeitherGespeichertHatBleibtOhneJa) {
    const std::vector<Weg> Alle = Wege();
    const Weg& Wächst = Alle[5];
    std::string Neu;
    const std::string Pfad = Zerreißen(Wächst, Neu);
    const std::string Rest = TagGesichertname(Pfad);
    std::fstream(Pfad, std::ios::binary | std::ios::in | std::ios::out) << "von einem anderen Programm";
    const std::string Fremd = Inhalt(Pfad);
    Altern(Rest, 3);

    // "--ja" on a command line is no answer to this.
    Person.Antworten = {Antwort::Ja};
    Lauf.Regel = Zweifelsfall::Melden;
    Starten();
    DateiZurückholen(Pfad, Person, Lauf, {});
    EXPECT_EQ(Inhalt(Pfad), Fremd);
    EXPECT_EQ(Person.Meldungen.size(), 1U);
    Person.Antworten.clear();
    Lauf.Regel = Zweifelsfall::Fragen;
    Lauf.Erwähnt.clear();
    Starten();
    SpeichernVollenden(Pfad, Person, Lauf, {});
    ASSERT_EQ(Person.Gefragt.size(), 1U) << "reading asks once in a run";
    for (const std::string& Welche : {Pfad, Rest}) {
        const auto Stand = DateistandLesen(Welche);
        EXPECT_NE(Person.Gefragt[0].find(DatumZeitText(Zeit.Lokal(Stand->Änderungszeit))), std::string::npos)
            << Person.Gefragt[0];
    }
    EXPECT_TRUE(DateiExistiert(Marke(Pfad)));
    // What was written now would be lost when the save is finished.
    for (const Weg& Einer : Alle) {
        DateiZurückholen(Pfad, Person, Lauf, {});
        EXPECT_FALSE(Einer.Ändern(Pfad, Meldung, {})) << Einer.Name;
        EXPECT_NE(Meldung.find("liegt in '" + Rest +
                               "'. Schließen Sie das Speichern ab oder löschen Sie diese Datei."),
                  std::string::npos)
            << Meldung;
        EXPECT_EQ(Inhalt(Pfad), Fremd);
    }
    EXPECT_EQ(Person.Gefragt.size(), 1U + Alle.size()) << "saving asks every time";
    Person.Antworten = {Antwort::Ja};
    DateiZurückholen(Pfad, Person, Lauf, {});
    EXPECT_EQ(Inhalt(Pfad), Neu);
    EXPECT_FALSE(DateiExistiert(Rest));
    EXPECT_TRUE(Wächst.Ändern(Pfad, Meldung, {})) << Meldung;
}

TEST_F(Störungen, ZerrisseneDateiBehältIhreZeitUndDieGanzeBekommtDieNeue) {
    std::string Neu;
    const std::string Pfad = Zerreißen(Wege()[5], Neu);
    const auto Tage = [&] { return (::time(nullptr) - DateistandLesen(Pfad)->Änderungszeit) / 86400; };
    EXPECT_EQ(Tage(), 400);
    // Stopped on the way, it goes on at the next start.
    Weise = [](const Dateischritt& Schritt) { Schritt([](std::uint64_t) { return false; }); };
    Starten();
    EXPECT_EQ(Tage(), 400);
    EXPECT_NE(Person.Meldungen.at(0).find("vollständiger neuer Inhalt"), std::string::npos);
    Weise = {};
    Starten();
    EXPECT_EQ(Inhalt(Pfad), Neu);
    EXPECT_TRUE(Person.Gefragt.empty());
    EXPECT_EQ(Tage(), 0);
}

TEST_F(Störungen, VerweisAufDemHilfsnamenFührtNirgendwohin) {
    const std::vector<Weg> Alle = Wege();
    const std::string Pfad = Bereitlegen(Alle[5], true);
    const fs::path Fremd = Ordner / "fremd";
    for (const std::string& Hilfsname : {TagGesichertname(Pfad), TagTemporärname(Pfad)}) {
        fs::create_symlink(Fremd, Hilfsname);
        SpeichernVollenden(Pfad, Person, Lauf, {});
        EXPECT_FALSE(Alle[5].Ändern(Pfad, Meldung, {{}, Programmordner.string()}));
        EXPECT_FALSE(fs::exists(Fremd)) << "written through a link that leads nowhere";
        EXPECT_EQ(Inhalt(Pfad), Alle[5].Start);
        EXPECT_TRUE(fs::is_symlink(Hilfsname));
        fs::remove(Hilfsname);
    }
    EXPECT_TRUE(fs::is_empty(Programmordner));
}

TEST_F(Störungen, MarkeBleibtBisDasSpeichernAbgeschlossenOderLangeHerIst) {
    std::string Neu;
    const std::string Pfad = Zerreißen(Wege()[5], Neu);
    const std::string Zerrissen = Inhalt(Pfad);
    const std::string Anderswo = Pfad + "-da";
    fs::rename(Pfad, Anderswo);
    Starten();  // its medium is away
    Anlegen("t.mp3", "Datei eines anderen Mediums");
    Starten();
    EXPECT_TRUE(Person.Gefragt.empty() && Person.Meldungen.empty());
    EXPECT_TRUE(DateiExistiert(Marke(Pfad)));
    fs::rename(Anderswo, Pfad);
    if (::geteuid() == 0) {
        const auto Besitzer = [](const std::string& Welche, uid_t Wer) {
            ASSERT_EQ(::chown(Welche.c_str(), Wer, static_cast<gid_t>(-1)), 0);
        };
        Besitzer(TagGesichertname(Pfad), 65534);
        Starten();
        Starten();
        ASSERT_EQ(Person.Meldungen.size(), 1U) << "told once";
        EXPECT_NE(Person.Meldungen[0].find("anderen Benutzer"), std::string::npos);
        EXPECT_EQ(Inhalt(Pfad), Zerrissen);
        EXPECT_TRUE(DateiExistiert(Marke(Pfad)));
        Besitzer(Marke(Pfad), 65534);
        Besitzer(Pfad, 65534);
        Starten();
        EXPECT_EQ(Inhalt(Pfad), Zerrissen) << "a mark that is not ours says nothing";
        Besitzer(Marke(Pfad), 0);
    }
    Starten();
    EXPECT_EQ(Inhalt(Pfad), Neu);
    EXPECT_FALSE(DateiExistiert(Marke(Pfad)));
    for (const int Tage : {90, 91}) {
        Anlegen("programm/" + SchreibmarkeName("fort.mp3"), "5\nfort.mp3");
        Altern(Marke("fort.mp3"), Tage);
        Starten();
        EXPECT_EQ(DateiExistiert(Marke("fort.mp3")), Tage == 90);
    }
}

TEST_F(Störungen, LangeNamenDieNurAmEndeAbweichenTeilenSichKeineHilfsdatei) {
    std::string Umlaute = "n";
    for (int i = 0; i < 119; ++i)
        Umlaute += "ü";
    for (const std::string& Stamm : {std::string(240, 'n'), Umlaute}) {
        const std::string Erste = Anlegen(Stamm + "1 teil.mp3", "Ton");
        const std::string Zweite = Anlegen(Stamm + "2 teil.mp3", "Ton");
        const std::string Rest = TagGesichertname(Erste);
        Anlegen(fs::path(Rest).filename().string(), "neuer Inhalt");
        EXPECT_TRUE(DateiExistiert(Rest)) << "a name that the file system takes";
        EXPECT_TRUE(IstUtf8(Rest));
        EXPECT_NE(TagTemporärname(Erste), TagTemporärname(Zweite));
        EXPECT_FALSE(UnterbrochenesSpeichern(Zweite));
        EXPECT_TRUE(UnterbrochenesSpeichern(Erste));
    }
}

}  // namespace
}  // namespace liedwerk
