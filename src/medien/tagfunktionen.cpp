#include "medien/tagfunktionen.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "basis/text.h"
#include "basis/zahl.h"
#include "medien/schreibweise.h"

namespace liedwerk {

using enum Tagfunktion;

const std::array<Funktionszeile, 14> Tagfunktionen = {
    Funktionszeile{AutoTag, "AutoTAG ausführen"},
    Funktionszeile{AutoTagEinstellen, "AutoTAG einstellen...", true},
    Funktionszeile{Aufräumen, "TAGs aufräumen", true},
    Funktionszeile{TitelInterpretTauschen, "Vertauschen: Titel <-> Interpret"},
    Funktionszeile{TitelAlbumTauschen, "Vertauschen: Titel <-> Album"},
    Funktionszeile{InterpretAlbumTauschen, "Vertauschen: Interpret <-> Album"},
    Funktionszeile{ZahlAusKommentar, "Zahl aus Kommentar in Titelnummer"},
    Funktionszeile{KleinErsterGroß, "Schreibweise: Klein, Erster groß"},
    Funktionszeile{KleinWörterGroß, "Schreibweise: Klein, Wörter groß"},
    Funktionszeile{Klein, "Schreibweise: Klein"},
    Funktionszeile{Groß, "Schreibweise: Groß"},
    Funktionszeile{FelderKopieren, "Felder kopieren..."},
    Funktionszeile{TagKopieren, "TAG in jeweils anderen kopieren", false, true},
    Funktionszeile{Entfernen, "TAG entfernen", true},
};

const std::array<Funktionsauswahl, 8> Funktionsauswahlen = {
    Funktionsauswahl{"Diesen ID3v1-TAG", false, true, false, false},
    Funktionsauswahl{"Diesen ID3v2-TAG", false, false, true, false},
    Funktionsauswahl{"Diesen ID3v1- und ID3v2-TAG", false, true, true, false},
    Funktionsauswahl{"Diesen Lyrics-TAG", false, false, false, true},
    Funktionsauswahl{"Alle ID3v1-TAGs", true, true, false, false},
    Funktionsauswahl{"Alle ID3v2-TAGs", true, false, true, false},
    Funktionsauswahl{"Alle ID3v1- und ID3v2-TAGs", true, true, true, false},
    Funktionsauswahl{"Alle Lyrics-TAGs", true, false, false, true},
};

namespace {

template <class Tabelle>
const typename Tabelle::value_type* ZeileFinden(const Tabelle& Zeilen, std::string_view Name) {
    const auto* Fund =
        std::find_if(Zeilen.begin(), Zeilen.end(), [&](const auto& Zeile) { return Zeile.Name == Name; });
    return Fund == Zeilen.end() ? nullptr : Fund;
}

std::string Umgeschrieben(std::string_view Text, Tagfunktion Art) {
    switch (Art) {
        case KleinErsterGroß:
            return Schreibweise(Text, true);
        case Klein:
            return Kleinbuchstaben(Text);
        case Groß:
            return Großbuchstaben(Text);
        default:
            return Schreibweise(Text, false);
    }
}

bool IstLeer(std::string_view Text) {
    return Kürzen(Text).empty();
}

}  // namespace

const Funktionszeile* TagfunktionFinden(std::string_view Name) {
    return ZeileFinden(Tagfunktionen, Name);
}

const Funktionsauswahl* FunktionsauswahlFinden(std::string_view Name) {
    return ZeileFinden(Funktionsauswahlen, Name);
}

std::string FunktionPrüfen(const Funktionszeile* Funktion, const Funktionsauswahl* Auswahl) {
    if (Funktion == nullptr || Auswahl == nullptr)
        return "Bitte wählen Sie eine Funktion und auf welche TAGs Sie diese anwenden möchten.";
    if (Auswahl->Lyrics && !Funktion->FürLyrics)
        return "Die gewählte Funktion steht nicht für Lyrics-TAGs zur Verfügung.";
    if (Auswahl->Id3v1 && Auswahl->Id3v2 && Funktion->NurEinTag)
        return "Die gewählte Funktion steht nicht für beide TAGs gleichzeitig zur Verfügung.";
    return {};
}

std::vector<Tagblock> Id3Blöcke(const Funktionsauswahl& Auswahl) {
    std::vector<Tagblock> Blöcke;
    if (Auswahl.Id3v1) Blöcke.push_back(Tagblock::Id3v1);
    if (Auswahl.Id3v2) Blöcke.push_back(Tagblock::Id3v2);
    return Blöcke;
}

AutoTagZiel AutoTagZielVon(const Funktionsauswahl& Auswahl) {
    if (Auswahl.Id3v1 && Auswahl.Id3v2) return AutoTagZiel::Beide;
    return Auswahl.Id3v1 ? AutoTagZiel::Id3v1 : AutoTagZiel::Id3v2;
}

std::string FeldvorgabePrüfen(const Feldvorgabe& Vorgabe, const Funktionsauswahl& Auswahl) {
    const bool IstGenre = Vorgabe.Feld != nullptr && Vorgabe.Feld->V1 == nullptr;
    if (!IstGenre || !Auswahl.Id3v1 || GenreHatNummer(Vorgabe.Text)) return {};
    return "Das Feld 'Genre' kann nicht in die ID3v1-Felder übertragen werden, da der ID3v1-Standard hier "
           "keine "
           "eigenen Eingaben zulässt.";
}

void FelderTauschen(Datensatz& Satz, Tagblock Tag, std::string_view Eines, std::string_view Anderes) {
    const Grundfeld& A = *GrundfeldFinden(Eines);
    const Grundfeld& B = *GrundfeldFinden(Anderes);
    const std::string Bisher = GrundfeldLesen(Satz, A, Tag);
    GrundfeldSetzen(Satz, A, Tag, GrundfeldLesen(Satz, B, Tag));
    GrundfeldSetzen(Satz, B, Tag, Bisher);
}

void SchreibweiseÄndern(Datensatz& Satz, Tagblock Tag, Tagfunktion Art) {
    for (const Grundfeld& Feld : Grundfelder) {
        if (Feld.MitSchreibweise)
            GrundfeldSetzen(Satz, Feld, Tag, Umgeschrieben(GrundfeldLesen(Satz, Feld, Tag), Art));
    }
}

std::string ZahlInTitelnummer(Datensatz& Satz, Tagblock Tag) {
    constexpr std::string_view Ziffern = "0123456789";
    const std::string Kommentar = GrundfeldLesen(Satz, *GrundfeldFinden("Kommentar"), Tag);
    const std::size_t Anfang = Kommentar.find_first_of(Ziffern);
    if (Anfang == Kommentar.npos) return {};
    const std::size_t Ende = std::min(Kommentar.find_first_not_of(Ziffern, Anfang), Kommentar.size());
    const std::string Gefunden = Kommentar.substr(Anfang, Ende - Anfang);
    const bool IstV1 = Tag == Tagblock::Id3v1;
    const auto Zahl = GanzzahlLesen<std::int32_t>(Gefunden);
    if (!Zahl || (IstV1 && *Zahl > 255))
        return "Die gefundene Zahl im Kommentar-Feld des " + std::string(IstV1 ? "ID3v1" : "ID3v2") +
               "-TAGs '" + Gefunden + "' ist zu groß" + (IstV1 ? " (>255)." : ".");
    GrundfeldSetzen(Satz, *GrundfeldFinden("Titelnummer"), Tag, std::to_string(*Zahl));
    return {};
}

void InAnderenKopieren(Datensatz& Satz, Tagblock Tag) {
    const Tagblock Anderer = Tag == Tagblock::Id3v1 ? Tagblock::Id3v2 : Tagblock::Id3v1;
    for (const Grundfeld& Feld : Grundfelder)
        GrundfeldSetzen(Satz, Feld, Anderer, GrundfeldLesen(Satz, Feld, Tag));
}

bool TagIstNichtssagend(const Datensatz& Satz, Tagblock Tag) {
    switch (Tag) {
        case Tagblock::Id3v1:
            return Satz.V1Gelesen && Satz.HatId3v1 == TagVorhanden && IstLeer(Satz.Titel) &&
                   IstLeer(Satz.Interpret) && IstLeer(Satz.Album);
        case Tagblock::Id3v2:
            return Satz.Id3v2Gelesen && Satz.HatId3v2 == TagVorhanden && IstLeer(Satz.V2Titel) &&
                   IstLeer(Satz.V2Interpret) && IstLeer(Satz.V2Album);
        case Tagblock::Lyrics:
            break;
    }
    return Satz.LyricsGelesen && Satz.HatLyrics == TagVorhanden && IstLeer(Satz.LyricsText);
}

bool TagBrauchtAutoTag(const Datensatz& Satz, Tagblock Tag) {
    const bool IstV1 = Tag == Tagblock::Id3v1;
    if ((IstV1 ? Satz.HatId3v1 : Satz.HatId3v2) != TagVorhanden) return true;
    return !(IstV1 ? Satz.Interpret : Satz.V2Interpret).empty() &&
           (IstV1 ? Satz.Titel : Satz.V2Titel).empty();
}

void LesbarMachen(Datensatz& Satz) {
    SchreibweiseÄndern(Satz, Tagblock::Id3v1, KleinWörterGroß);
    SchreibweiseÄndern(Satz, Tagblock::Id3v2, KleinWörterGroß);
    Satz.LyricsText = Schreibweise(Satz.LyricsText, true);
}

}  // namespace liedwerk
