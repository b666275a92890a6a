// What the tests of playing stand on: an index in memory, a player and programs that only keep what they are
// told, a folder for play lists.
#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "abspielen/abspielen.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/spieler.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {

struct Abspielwelt {
    Abspielwelt() {
        std::string Muster = (std::filesystem::temp_directory_path() / "liedwerk-spiel-XXXXXX").string();
        if (::mkdtemp(Muster.data()) == nullptr) throw std::runtime_error("kein Ordner");
        Ordner = Muster;
        Index.Optionen.Dateitypen = DateitypenVorgabe();
    }
    ~Abspielwelt() { std::filesystem::remove_all(Ordner); }
    Abspielwelt(const Abspielwelt&) = delete;
    Abspielwelt& operator=(const Abspielwelt&) = delete;

    std::string Datei(const std::string& Name) const {
        const std::string Pfad = Ordner + "/" + Name;
        std::filesystem::create_directories(std::filesystem::path(Pfad).parent_path());
        std::ofstream(Pfad) << "x";
        return Pfad;
    }
    Satznummer Anhängen(const std::string& Pfad, const Datensatz& Satz = {}) {
        return SatzAnhängen(Index, Pfad, Satz);
    }
    static Datensatz Lied(const std::string& Interpret, const std::string& Titel, int Dauer = 0) {
        Datensatz Satz;
        Satz.HatId3v1 = TagVorhanden;
        Satz.Interpret = Interpret;
        Satz.Titel = Titel;
        Satz.Dauer = Dauer;
        return Satz;
    }
    std::int64_t Häufigkeit(Satznummer Nummer) const {
        return Index.Sätze.Zahl(Nummer, FeldAbspielHäufigkeit);
    }
    Abspielumgebung Umgebung() {
        return {Index,
                Medium,
                {Drives, Werte, Log, {}},
                Steuerung,
                Erkennung,
                Log,
                Leser,
                Ordner + "/lauf",
                [this](std::string_view Pfad) {
                    Bilder.emplace_back(Pfad);
                    return true;
                },
                [this] { ++Nachrichten; }};
    }
    Abspielergebnis Abspielen(const std::vector<Satznummer>& Dateien, bool Anhängen = false,
                              bool Standard = false, bool Leeren = false, std::string_view Programm = {}) {
        Abspielumgebung Hier = Umgebung();
        return AbspielenMediaPlayer(Hier, Dateien, Anhängen, Standard, Leeren, Programm);
    }

    std::string Ordner;
    Katalog Index;
    Einstellungen Werte;
    Mediumspeicher Medium;
    Titelerkennung Erkennung;
    speicher::Laufwerksliste Drives;
    speicher::Protokollliste Log;
    speicher::Person Person;
    speicher::StehendeUhr Zeit;
    speicher::Spieler Kanal;
    speicher::Programme Programme;
    Systemordnerleser Leser;
    Spielersteuerung Steuerung{Kanal, Programme, Werte, Person, Zeit};
    std::vector<std::string> Bilder;
    int Nachrichten = 0;
};

}  // namespace liedwerk
