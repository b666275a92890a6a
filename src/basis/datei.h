// Files: existence, block-wise reading, and the replacement of a file as one commit.
//
// Reading never trusts a length that stands in a file: whatever is asked for is bounded by the file's real
// size. Writing a user's file goes through Dateiersatz: the new content takes the place of the old one in one
// rename or not at all. The bodies stand in plattform/, one per system; nothing here throws.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

// What a look at a file tells. Times are seconds since 1970 UTC.
struct Dateistand {
    std::uint64_t Größe = 0;
    std::int64_t Änderungszeit = 0;
    std::uint64_t Gerät = 0;
    std::uint64_t Inode = 0;
    bool IstOrdner = false;
    bool IstDatei = false;  // a regular file, after following links
    bool operator==(const Dateistand&) const = default;
};

// A failed operation of the system: its number and its text for the person.
struct Dateifehler {
    int Nummer = 0;
    std::string Text;
    explicit operator bool() const { return Nummer != 0; }
};

// What stands under the path, links followed; nothing when it cannot be asked.
std::optional<Dateistand> DateistandLesen(std::string_view Pfad);

// What every change of a file changes, also one that keeps its size and its modification time: whether a copy
// that was made in between is still one. Rights and names count as changes too. Of no use beyond a run.
struct Änderungsspur {
    Dateistand Stand;
    std::int64_t Änderung = 0;        // of the content: nanoseconds within the second
    std::int64_t Statusänderung = 0;  // of anything, by the system's clock: seconds since 1970
    std::int64_t StatusNanosekunden = 0;
    bool operator==(const Änderungsspur&) const = default;
};
// Nothing for what cannot be opened as a regular file; opening is what asks a server anew.
std::optional<Änderungsspur> ÄnderungsspurLesen(std::string_view Pfad);

// True for an existing file of any kind but a folder. An empty path and one that ends in "/", or is a Windows
// path and ends in ":" or "\", are false.
bool DateiExistiert(std::string_view Pfad);
// True for an existing folder.
bool OrdnerExistiert(std::string_view Pfad);
// True when the file is there and can be opened for writing now (nothing is changed).
bool DateiBeschreibbar(std::string_view Pfad);

// True for a regular file of this user under that very name: no link, and no second name of another file.
bool EigeneDatei(std::string_view Pfad);

// What is added to the text of a failure when a helper file could not be removed either.
std::string HilfsdateiBleibt(std::string_view Hilfsdatei);

// Removes a file; write protection of the file itself does not hinder it. A file that is not there is an
// error.
Dateifehler DateiLöschen(std::string_view Pfad);
// What an operation does with a file that stands under the new name already.
enum class Vorhandenes { Ersetzen, Lassen };
// Renames within one file system. Without replacement an existing target is an error and stays, also when it
// came between two looks. The folder is flushed.
Dateifehler DateiUmbenennen(std::string_view Alt, std::string_view Neu,
                            Vorhandenes Regel = Vorhandenes::Ersetzen);
// True for the failure of a rename that would lead to another file system.
bool AnderesDateisystem(const Dateifehler& Fehler);
// True when the folder of the path lists an entry of exactly this name. Tells two names of one file apart
// from two spellings of one name, where the file system takes these for the same.
bool NameVerzeichnet(std::string_view Pfad);
// Creates an empty file; one that stands there is an error and stays.
Dateifehler DateiNeuAnlegen(std::string_view Pfad);
// Whom a new file or folder is open to: whom the system's rules allow, or nobody but its owner.
enum class Zugang { Üblich, NurEigener };
// Creates the folder and those above it, each for the same users; what is there stays as it is.
Dateifehler OrdnerAnlegen(std::string_view Pfad, Zugang FürNeue = Zugang::Üblich);
// Adds bytes to the end of a regular file in one write; one that is missing is made, open to its owner alone.
// Anything else under the name is an error, links too.
Dateifehler DateiAnhängen(std::string_view Pfad, std::string_view Bytes);
// Removes an empty folder.
Dateifehler OrdnerLöschen(std::string_view Pfad);
// Takes the permission to write from everybody, or gives it to the owner.
Dateifehler SchreibschutzSetzen(std::string_view Pfad, bool Geschützt);
// Called while a file is copied, with the bytes done; false cancels.
using Kopierfortschritt = std::function<bool(std::uint64_t Bytes)>;
// Copies a file completely or not at all, through a temporary name of its own and a rename; modification
// time, mode and extended attributes are kept. A source that changes meanwhile is an error.
Dateifehler DateiKopieren(std::string_view Quelle, std::string_view Ziel,
                          Vorhandenes Regel = Vorhandenes::Ersetzen, const Kopierfortschritt& Weiter = {});

// An open file for reading. Movable, closes itself.
class Lesedatei {
  public:
    Lesedatei() = default;
    // Opens a regular file; other kinds (pipes, devices, folders) are refused with an error and never block.
    static Lesedatei Öffnen(std::string_view Pfad, Dateifehler* Fehler = nullptr);
    Lesedatei(Lesedatei&& Andere) noexcept;
    Lesedatei& operator=(Lesedatei&& Andere) noexcept;
    Lesedatei(const Lesedatei&) = delete;
    Lesedatei& operator=(const Lesedatei&) = delete;
    ~Lesedatei();

    bool Offen() const { return Griff >= 0; }
    // State at the time of opening.
    const Dateistand& Stand() const { return Zustand; }
    std::uint64_t Größe() const { return Zustand.Größe; }
    // Tells a file from an earlier one whose inode number it was given; 0 when the file system cannot.
    std::uint32_t Generation() const;
    // Claims the file against other runs of this program until it is closed; waits for nobody. An error when
    // somebody holds it, or when the path that was opened leads to another file by now.
    Dateifehler Sperren(std::string_view Pfad) const;
    // Reads up to Länge bytes at the 0-based offset Stelle into Ziel; gives the number read, less only at the
    // end of the file or on an error.
    std::size_t Lesen(char* Ziel, std::uint64_t Stelle, std::size_t Länge) const;
    // The same as a string; never longer than the file.
    std::string Lesen(std::uint64_t Stelle, std::uint64_t Länge) const;
    // True when bytes of the file did not come when they were asked for: the system refused them, or the file
    // is shorter by now. What was read then tells nothing of its content.
    bool Lesefehler() const { return Gestört; }

  private:
    friend class Dateiersatz;
    int Griff = -1;
    Dateistand Zustand;
    mutable bool Gestört = false;
};

// The whole content of a file up to Höchstens bytes; nothing on failure or when it is longer.
std::optional<std::string> DateiLesen(std::string_view Pfad, std::uint64_t Höchstens = UINT64_MAX);

// True when the beginning and the end of a regular file come when they are asked for; so for an empty one. Of
// what does not answer (rights, a network or a medium that is away, a bad sector) nobody can tell what it
// holds: nothing may be emptied or concluded from it.
bool IstLesbar(std::string_view Pfad);

// Replaces a file by new content: the commit object of the house. Content goes to a temporary name in the
// folder of the target, which is opened without following links and without truncation and is locked; only
// then it is written. Where the target is a symbolic link, the file at its end is replaced and
// the link stays; the temporary file then lies beside that file. Übernehmen flushes it, gives it mode, owner
// (where possible) and extended attributes of the old file, renames it over the target and flushes the
// folder. The destructor without Übernehmen removes the temporary file and leaves the target as it was.
class Dateiersatz {
  public:
    enum class Öffnung {
        Bereit,
        Gesperrt,  // another process is writing under this temporary name
        Fehler,
    };

    Dateiersatz() = default;
    Dateiersatz(const Dateiersatz&) = delete;
    Dateiersatz& operator=(const Dateiersatz&) = delete;
    ~Dateiersatz();

    // Prepares the replacement of Ziel through Temporär (same folder). An unlocked file of this user that
    // lies there is the rest of a run that was cut off and goes, so that name must be one that nobody else
    // uses; a link, a folder or another kind of file is an error. A file that is new under its name gets
    // mode, owner and attributes of Vorbild when one is named, else what FürNeue says. With NurEigener
    // a file that stands there already is no longer for everybody either.
    Öffnung Öffnen(std::string Ziel, std::string Temporär, std::string Vorbild = {},
                   Zugang FürNeue = Zugang::Üblich);
    // Appends bytes; large pieces go straight to the system, small ones are collected. False after the first
    // error.
    bool Schreiben(std::string_view Bytes);
    // Appends the whole of an open file, and gives the new file its modification time. False after the first
    // error, and when Weiter says so.
    bool Kopieren(const Lesedatei& Quelle, const Kopierfortschritt& Weiter = {});
    // Appends Länge bytes of an open file from the 0-based offset Stelle on, block by block. False after the
    // first error, when the file has fewer, and when Weiter says so.
    bool Kopieren(const Lesedatei& Quelle, std::uint64_t Stelle, std::uint64_t Länge,
                  const Kopierfortschritt& Weiter = {});
    // Makes the new content the target. False on failure: then the target is the old one, whole. With
    // BehalteTemporär a failed rename leaves the temporary file in place.
    bool Übernehmen(bool BehalteTemporär = false, Vorhandenes Regel = Vorhandenes::Ersetzen);
    // Gives up: the temporary file goes. When the system refuses that too, the error names the file.
    void Verwerfen();
    // The first error; empty while all went well.
    const Dateifehler& Fehler() const { return ErsterFehler; }
    // State of the new file after Übernehmen.
    const Dateistand& Stand() const { return Zustand; }

  private:
    bool Leeren();
    void Schließen();
    std::string Zielpfad;
    std::string Temporärpfad;
    std::string Vorbildpfad;
    std::string Puffer;
    int Griff = -1;
    bool NurFürEigenen = false;
    bool ZeitBehalten = false;
    std::int64_t ZeitSekunden = 0;
    std::int64_t ZeitNanosekunden = 0;
    Dateifehler ErsterFehler;
    Dateistand Zustand;
};

// Overwrites a file from the 0-based offset Stelle on, beyond its end too, in one write, and flushes it.
// Erwartet is the state of the file for which the bytes were made: another one is an error. On failure the
// file is as it was: the room is claimed first, and what was written in part is taken back. Where that is
// refused too, the error says that the file may be damaged.
Dateifehler DateiÜberschreiben(std::string_view Pfad, const Dateistand& Erwartet, std::uint64_t Stelle,
                               std::string_view Bytes);

// The name under which the new content of a file lies until it takes its place: beside the file, at the end
// of links. Its ending is ours; editors keep a person's older content under a mere "~".
inline constexpr std::string_view VorläufigeEndung = "~lwitmp";
std::string VorläufigerName(std::string_view Datei);

// The path behind symbolic links at the end of Pfad, also when nothing lies there yet; Pfad itself when it is
// no link or the links do not end.
std::string VerweiseAuflösen(std::string_view Pfad);

// The state of a "~" file that lies beside a target.
enum class Sperrzustand {
    Keine,     // no such file
    Frei,      // it lies there, nobody holds it: left behind by a crash
    Gehalten,  // a process holds it locked: a save is running
};
Sperrzustand SperreLesen(std::string_view Temporär);

// A window onto the beginning of a file that grows by need: parsers ask for the bytes that they look at, and
// only those are read. Offsets are 0-based.
class Dateianfang {
  public:
    explicit Dateianfang(const Lesedatei& Quelle) : Datei(Quelle) {}
    // The first Länge bytes of the file, or all of them when it is shorter. Valid until the next call.
    std::string_view Bis(std::uint64_t Länge);
    std::uint64_t Dateigröße() const { return Datei.Größe(); }
    const Lesedatei& Quelle() const { return Datei; }

  private:
    const Lesedatei& Datei;
    std::string Puffer;
    std::size_t Gültig = 0;
};

}  // namespace liedwerk
