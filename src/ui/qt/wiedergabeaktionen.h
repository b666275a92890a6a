// Playing in the main window: actions, the player panel and its clock.
#pragma once

#include <memory>

#include "core/wiedergabelauf.h"
#include "ui/qt/fensterplatz.h"
#include "ui/qt/spielerleiste.h"

namespace liedwerk {

class Wiedergabeaktionen {
  public:
    // Takt is asked to come soon when the player has changed.
    Wiedergabeaktionen(Fensterplatz& Platz, Spielerleiste& Feld, std::function<void()> Takt);
    ~Wiedergabeaktionen();
    Wiedergabeaktionen(const Wiedergabeaktionen&) = delete;
    Wiedergabeaktionen& operator=(const Wiedergabeaktionen&) = delete;

    // tmrScrollUpdate, the player's part. Gives the milliseconds until it wants to come again; 0: not before
    // the player changes.
    int TaktAusführen();
    // AbspielenMediaPlayer with this window's forms around it.
    void Abspielen(const std::vector<Satznummer>& Dateien, bool Anhängen, bool Standardanwendung,
                   bool PlaylisteLeeren, std::string_view Programm);

  private:
    void AktionenAnlegen(Fensterplatz& Platz);
    void FeldVerbinden();
    void BefehlSenden(int Nummer);
    bool lstSongs_DblClick(Satznummer Nummer);
    void mnuAusführenMit_Click();
    void mnuAudioplayerStarten_Click();
    void mnuAutoDJ_Click();
    Abspielumgebung UmgebungMitFormen();

    Anwendung& Programm;
    QWidget& Fenster;
    Spielerleiste& fraPlayer;
    Spielerkanal& Kanal;  // outlives the window, unlike Programm
    Wiedergabe Lauf;
    std::function<void()> BaldTakten;
};

}  // namespace liedwerk
