#include "plattform/linux/ordnerwacht.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <deque>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <mutex>
#include <poll.h>
#include <set>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <thread>
#include <unistd.h>
#include <unordered_map>
#include <utility>

#include "basis/pfad.h"
#include "basis/zahl.h"
#include "plattform/linux/einhaengungstabelle.h"
#include "plattform/linux/griff.h"

namespace liedwerk {

// What the order's thread and the one who gave it have in common.
struct Systemordnerwacht::Lauf {
    Griffhalter Weckruf{::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    std::atomic<bool> Ende = false;
    std::mutex Sperre;  // guards Auftrag.Melden
    Wachtauftrag Auftrag;
};

namespace {

using Zeitgeber = std::chrono::steady_clock;

constexpr std::size_t HöchsteMeldung = 1000;  // paths
constexpr const char* Grenzdatei = "/proc/sys/fs/inotify/max_user_watches";
constexpr std::uint32_t Ereignisse =
    IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE | IN_ONLYDIR | IN_EXCL_UNLINK;

// How many folders may be watched. The person's other programs need watches of the same store.
std::size_t Ordnergrenze(const Wachtmaß& Maß) {
    const Griffhalter Datei(::open(Grenzdatei, O_RDONLY | O_CLOEXEC));
    std::array<char, 32> Text{};
    const auto Länge = Datei ? ::read(Datei.Wert(), Text.data(), Text.size()) : 0;
    std::string_view Ziffern(Text.data(), Länge > 0 ? static_cast<std::size_t>(Länge) : 0);
    Ziffern = Ziffern.substr(0, Ziffern.find('\n'));
    const auto Gewährt = GanzzahlLesen<std::int64_t>(Ziffern).value_or(8192);
    return std::min(Maß.Ordner, static_cast<std::size_t>(std::max<std::int64_t>(Gewährt, 2)) / 2);
}

struct Ordnerschließer {
    void operator()(DIR* Offen) const { ::closedir(Offen); }
};

// The folders under watch.
class Beobachtung {
  public:
    Beobachtung(const Systemordnerwacht::Lauf& Ganzes, const Wachtmaß& Maß)
        : Lauf(Ganzes), Grenze(Ordnergrenze(Maß)), Quelle(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
        AnGrenze = !Quelle;
    }
    int Griff() const { return Quelle.Wert(); }

    // Watches a folder of the order, if it lies on this machine.
    void Aufnehmen(const Wachtordner& Ordner) {
        const std::string Wo = MitTrenner(LinksFolgen(Ordner.Pfad));
        const auto& Tabelle = Einhängungen.Jetzt();
        const auto Träger =
            std::ranges::find_if(Tabelle, [&](const Einhängung& Eine) { return Wo.starts_with(Eine.Ort); });
        if (Träger != Tabelle.end() && LiegtFern(*Träger)) return;
        Durchgehen(Ordner.Pfad, Ordner.Unterordner, {});
    }

    // Watches a folder and those below it; what is in them goes to NeueDatei when there is one.
    void Durchgehen(const std::string& Wurzel, bool Unterordner,
                    const std::function<void(const std::string&)>& NeueDatei) {
        std::deque<std::string> Offene{MitTrenner(Wurzel)};
        while (!Offene.empty() && !Lauf.Ende && !AnGrenze) {
            const std::string Ordner = std::move(Offene.front());
            Offene.pop_front();
            // A link to a folder may lead anywhere, also back; only the person's own choice may be one.
            const bool IstWurzel = Ordner.size() == MitTrenner(Wurzel).size();
            if (Beobachten(Ordner, Unterordner, IstWurzel) && (Unterordner || NeueDatei))
                Auflisten(Ordner, Unterordner, NeueDatei, Offene);
        }
    }

    struct Ort {
        std::string Ordner;  // with a final separator
        bool Unterordner = false;
    };
    const Ort* OrtVon(int Nummer) const {
        const auto Fund = Orte.find(Nummer);
        return Fund == Orte.end() ? nullptr : &Fund->second;
    }
    void Vergessen(int Nummer) { Orte.erase(Nummer); }

    bool AnGrenze = false;  // folders are left out since no more can be watched

  private:
    static bool LiegtFern(const Einhängung& Eine) {
        const Laufwerksart Art = ArtVon(Eine);
        return Art == Laufwerksart::Netzwerk || Art == Laufwerksart::CdRom;
    }

    bool Beobachten(const std::string& Ordner, bool Unterordner, bool LinkErlaubt) {
        // Asked by the table alone: the place itself might not answer.
        const Einhängung* const Eine = EinhängungAn(Einhängungen.Jetzt(), Ordner);
        const auto Name =
            Systempfad(std::string_view(Ordner).substr(0, std::max<std::size_t>(1, Ordner.size() - 1)));
        if (!Name || (Eine != nullptr && LiegtFern(*Eine))) return false;
        AnGrenze = Orte.size() >= Grenze;
        if (AnGrenze) return false;
        const std::uint32_t Maske = Ereignisse | (LinkErlaubt ? 0U : std::uint32_t{IN_DONT_FOLLOW});
        const int Nummer = ::inotify_add_watch(Quelle.Wert(), Name->c_str(), Maske);
        AnGrenze = Nummer < 0 && errno == ENOSPC;
        if (Nummer >= 0) Orte[Nummer] = {Ordner, Unterordner};
        return Nummer >= 0;
    }

    static void Auflisten(const std::string& Ordner, bool Unterordner,
                          const std::function<void(const std::string&)>& NeueDatei,
                          std::deque<std::string>& Offene) {
        const std::unique_ptr<DIR, Ordnerschließer> Offen(::opendir(Ordner.c_str()));
        if (!Offen) return;
        while (const dirent* const Eintrag = ::readdir(Offen.get())) {
            const std::string_view Name = Eintrag->d_name;
            if (Name == "." || Name == "..") continue;
            // Where the listing tells no kind, watching finds out: it takes folders only.
            if (Unterordner && (Eintrag->d_type == DT_DIR || Eintrag->d_type == DT_UNKNOWN))
                Offene.push_back(Ordner + std::string(Name) + "/");
            if (NeueDatei && Eintrag->d_type != DT_DIR) NeueDatei(Ordner + std::string(Name));
        }
    }

    const Systemordnerwacht::Lauf& Lauf;
    const std::size_t Grenze;
    Griffhalter Quelle;
    Einhängungstabelle Einhängungen;
    std::unordered_map<int, Ort> Orte;
};

// The thread of an order.
class Wächter {
  public:
    Wächter(Systemordnerwacht::Lauf& Ganzes, const Wachtmaß& Maße)
        : Lauf(Ganzes), Maß(Maße), Ordner(Ganzes, Maße) {}

    void Laufen() {
        for (const Wachtordner& Einer : Lauf.Auftrag.Ordner)
            Ordner.Aufnehmen(Einer);
        GrenzeMelden();
        std::array<pollfd, 2> Fragen{pollfd{Ordner.Griff(), POLLIN, 0},
                                     pollfd{Lauf.Weckruf.Wert(), POLLIN, 0}};
        while (!Lauf.Ende) {
            Beharrlich([&] { return ::poll(Fragen.data(), Fragen.size(), Wartezeit()); });
            if (Lauf.Ende) return;
            if (Fragen[0].revents != 0) EreignisseLesen();
            if (Offen && Zeitgeber::now() >= Fällig) Melden();
        }
    }

  private:
    // Milliseconds until a message is due; -1 without one.
    int Wartezeit() const {
        if (!Offen) return -1;
        const auto Rest = std::chrono::ceil<std::chrono::milliseconds>(Fällig - Zeitgeber::now());
        return static_cast<int>(std::clamp<std::int64_t>(Rest.count(), 0, Maß.Höchstens.count()));
    }

    void EreignisseLesen() {
        alignas(inotify_event) std::array<char, 65536> Block;
        const auto Länge = Beharrlich([&] { return ::read(Ordner.Griff(), Block.data(), Block.size()); });
        for (std::size_t Stelle = 0; Länge > 0 && Stelle < static_cast<std::size_t>(Länge);) {
            const auto* const Ereignis = reinterpret_cast<const inotify_event*>(Block.data() + Stelle);
            const char* const Name = Block.data() + Stelle + sizeof(inotify_event);
            Auswerten(*Ereignis, Ereignis->len > 0 ? std::string_view(Name) : std::string_view());
            Stelle += sizeof(inotify_event) + Ereignis->len;
        }
        GrenzeMelden();
    }

    void Auswerten(const inotify_event& Ereignis, std::string_view Name) {
        if ((Ereignis.mask & IN_Q_OVERFLOW) != 0) return Vermerken({}, true);
        if ((Ereignis.mask & IN_IGNORED) != 0) return Ordner.Vergessen(Ereignis.wd);
        const auto* const Ort = Ordner.OrtVon(Ereignis.wd);
        if (Ort == nullptr || Name.empty()) return;
        const std::string Pfad = Ort->Ordner + std::string(Name);
        if ((Ereignis.mask & IN_ISDIR) == 0) {
            // A file that was only made is still to be written.
            if ((Ereignis.mask & IN_CREATE) == 0) DateiVermerken(Pfad);
            return;
        }
        if (!Ort->Unterordner) return;
        // What was in a folder that went away as a whole is not told.
        if ((Ereignis.mask & IN_MOVED_FROM) != 0) return Vermerken({}, true);
        if ((Ereignis.mask & (IN_CREATE | IN_MOVED_TO)) != 0)
            Ordner.Durchgehen(Pfad, true, [this](const std::string& Datei) { DateiVermerken(Datei); });
    }

    void DateiVermerken(const std::string& Pfad) {
        if (Lauf.Auftrag.Gesucht(DateinameVon(Pfad))) Vermerken(Pfad, false);
    }

    void Vermerken(const std::string& Pfad, bool Ungenau) {
        const auto Jetzt = Zeitgeber::now();
        if (!Offen) Späteste = Jetzt + Maß.Höchstens;
        Offen = true;
        Fällig = std::min(Jetzt + Maß.Ruhe, Späteste);
        Bericht.Ungenau |= Ungenau || Pfade.size() >= HöchsteMeldung;
        if (!Pfad.empty() && Pfade.size() < HöchsteMeldung) Pfade.insert(Pfad);
    }

    void GrenzeMelden() {
        if (!Ordner.AnGrenze || GrenzeGemeldet) return;
        GrenzeGemeldet = true;
        Bericht.Unvollständig = true;
        Melden();
    }

    void Melden() {
        Bericht.Pfade.assign(Pfade.begin(), Pfade.end());
        Pfade.clear();
        Offen = false;
        const std::lock_guard Halten(Lauf.Sperre);
        if (Lauf.Auftrag.Melden) Lauf.Auftrag.Melden(std::exchange(Bericht, {}));
    }

    Systemordnerwacht::Lauf& Lauf;
    const Wachtmaß Maß;
    Beobachtung Ordner;
    std::set<std::string> Pfade;
    Wachtmeldung Bericht;
    bool Offen = false;
    bool GrenzeGemeldet = false;
    Zeitgeber::time_point Fällig;
    Zeitgeber::time_point Späteste;
};

void AufgabeMelden(Systemordnerwacht::Lauf& Lauf) {
    Wachtmeldung Bericht;
    Bericht.Unvollständig = true;
    const std::lock_guard Halten(Lauf.Sperre);
    if (Lauf.Auftrag.Melden) Lauf.Auftrag.Melden(std::move(Bericht));
}

// A watch that runs out of memory gives up and tells so; an exception that leaves a thread ends the program.
void Wachen(Systemordnerwacht::Lauf& Lauf, const Wachtmaß& Maße) {
    try {
        Wächter(Lauf, Maße).Laufen();
    } catch (const std::exception&) {
        AufgabeMelden(Lauf);
    }
}

}  // namespace

void Systemordnerwacht::Beginnen(Wachtauftrag Auftrag) {
    Beenden();
    std::erase_if(Auftrag.Ordner, [](const Wachtordner& Einer) { return !IstPosixPfad(Einer.Pfad); });
    if (Auftrag.Ordner.empty()) return;
    Laufender = std::make_shared<Lauf>();
    Laufender->Auftrag = std::move(Auftrag);
    try {
        std::thread([Lauf = Laufender, Maße = Maß] { Wachen(*Lauf, Maße); }).detach();
    } catch (const std::system_error&) {
        AufgabeMelden(*Laufender);  // the system gives no thread
    }
}

void Systemordnerwacht::Beenden() {
    if (!Laufender) return;
    {
        const std::lock_guard Halten(Laufender->Sperre);
        Laufender->Auftrag.Melden = nullptr;
    }
    Laufender->Ende = true;
    const std::uint64_t Eins = 1;
    static_cast<void>(!::write(Laufender->Weckruf.Wert(), &Eins, sizeof Eins));
    Laufender.reset();
}

}  // namespace liedwerk
