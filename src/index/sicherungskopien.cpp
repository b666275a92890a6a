#include "index/sicherungskopien.h"

#include <algorithm>

#include "basis/dateiname.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "index/indexformat.h"

namespace liedwerk {
namespace {

constexpr std::string_view Namensmitte = " - Backup vom ";
constexpr std::string_view Stempelmuster = "00.00.0000 00-00-00";

// True when the name has the form of our own backups: only these are ever deleted.
bool IstEigeneSicherung(std::string_view Pfad, std::string_view Ziel) {
    if (Pfad.size() != Ziel.size() + Namensmitte.size() + Stempelmuster.size() + Sicherungsendung.size()) {
        return false;
    }
    std::string_view Rest = Pfad.substr(Ziel.size());
    if (!Rest.starts_with(Namensmitte) || !EndetMitOhneGroß(Rest, Sicherungsendung)) return false;
    Rest = Rest.substr(Namensmitte.size(), Stempelmuster.size());
    return std::equal(Rest.begin(), Rest.end(), Stempelmuster.begin(), [](char Zeichen, char Muster) {
        return Muster == '0' ? Zeichen >= '0' && Zeichen <= '9' : Zeichen == Muster;
    });
}

// False when there is no new backup; that was shown.
bool Anlegen(const std::string& Ziel, const Indexumgebung& Umgebung) {
    const std::string Kopie = SicherungskopieName(Ziel, Umgebung.Zeit.Jetzt());
    const std::string Anfang = "Eine Sicherungskopie der Indexdatei konnte nicht unter dem Dateinamen '" +
                               Kopie + "' angelegt werden, ";
    if (DateiExistiert(Kopie) && DateiLöschen(Kopie)) {
        Umgebung.Person.Melden(Symbol::Ausrufezeichen,
                               Anfang + "da die vorherige Datei nicht gelöscht werden konnte.");
        return false;
    }
    if (DateiKopieren(Ziel, Kopie)) {
        Umgebung.Person.Melden(
            Symbol::Ausrufezeichen,
            Anfang + "da die Originaldatei nicht kopiert werden konnte.\n\n" + std::string(ZugriffsHinweis));
        return false;
    }
    return true;
}

}  // namespace

std::string SicherungskopieName(std::string_view Datei, const Zeitpunkt& Jetzt) {
    std::string Stempel = DatumZeitText(Jetzt);
    std::ranges::replace(Stempel, ':', '-');
    std::string Name(Datei);
    return Name.append(Namensmitte).append(Stempel).append(Sicherungsendung);
}

std::optional<std::vector<std::string>> SicherungskopienSuchen(const Ordnerleser& Ordner,
                                                               std::string_view Verzeichnis) {
    std::vector<std::string> Funde;
    const bool Gelungen = Ordner.Auflisten(Verzeichnis, [&](const Ordnereintrag& Eintrag) {
        if (!Eintrag.IstOrdner && GleichOhneGroß(EndungVon(Eintrag.Name), Sicherungsendung)) {
            Funde.push_back(PfadVerbinden(Verzeichnis, Eintrag.Name));
        }
        return true;
    });
    if (!Gelungen) return std::nullopt;
    return Funde;
}

void UnfertigeKopienEntfernen(const std::string& Ziel, const Ordnerleser& Ordner) {
    std::vector<std::string> Reste;
    const std::string_view Verzeichnis = OrdnerDer(Ziel);
    Ordner.Auflisten(Verzeichnis, [&](const Ordnereintrag& Eintrag) {
        if (!Eintrag.IstOrdner && Eintrag.Name.starts_with(DateinameVon(Ziel)) &&
            IstUnfertigeKopie(Eintrag.Name))
            Reste.push_back(PfadVerbinden(Verzeichnis, Eintrag.Name));
        return true;
    });
    for (const std::string& Datei : Reste) {
        if (EigeneDatei(Datei) && SperreLesen(Datei) == Sperrzustand::Frei)
            static_cast<void>(DateiLöschen(Datei));
    }
}

void SicherungskopienFühren(const std::string& Ziel, const Einstellungen& Werte,
                            const Indexumgebung& Umgebung, bool MitNeuer) {
    bool NeuesBackup = true;
    std::vector<std::string> Veraltet;
    const Zeitpunkt Jetzt = Umgebung.Zeit.Jetzt();
    const auto Funde = SicherungskopienSuchen(Umgebung.Ordner, OrdnerDer(Ziel));
    for (const std::string& Datei : Funde.value_or(std::vector<std::string>())) {
        // Where upper and lower case make two files, the backups of the other one are none of ours.
        if (!PfadeGleich(std::string_view(Datei).substr(0, Ziel.size()), Ziel)) continue;
        const auto Stand = DateistandLesen(Datei);
        if (!Stand) continue;
        const Zeitpunkt Zeit = Umgebung.Zeit.Lokal(Stand->Änderungszeit);
        if (TageZwischen(Zeit, Jetzt) > Werte.BackupsSpeichernKopienBehalten &&
            IstEigeneSicherung(Datei, Ziel)) {
            Veraltet.push_back(Datei);
        }
        if (StundenZwischen(Zeit, Jetzt) < Werte.BackupsSpeichernIntervall) NeuesBackup = false;
    }
    // The old ones may be all there is: they go only behind the new one.
    if (NeuesBackup && MitNeuer && !Anlegen(Ziel, Umgebung)) return;
    for (const std::string& Datei : Veraltet) {
        if (DateiLöschen(Datei)) {
            Umgebung.Person.Melden(Symbol::Ausrufezeichen,
                                   "Das veraltete Backup der Indexdatei unter dem Namen '" + Datei +
                                       "' konnte nicht gelöscht werden.");
        }
    }
}

}  // namespace liedwerk
