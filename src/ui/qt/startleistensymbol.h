// The tray symbol. It exists only while there is a host that shows it, so that a hidden window is never lost.
#pragma once

#include <QDBusServiceWatcher>
#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>
#include <functional>
#include <memory>

namespace liedwerk {

class Startleistensymbol final : public QObject {
  public:
    explicit Startleistensymbol(QObject* Eltern) : QObject(Eltern) {}

    std::function<void()> Geklickt;  // show or hide the window
    std::function<void()> Verwaist;  // the host has gone: a hidden window must come back
    std::function<void()> Angelegt;  // the symbol is there now
    std::function<void()> OhneWirt;  // nobody showed up to hold it

    void Einrichten(QMenu* Menü);
    void Entfernen();
    bool Vorhanden() const { return Symbol != nullptr; }
    void HinweisZeigen(const QString& Titel, const QString& Text);

  private:
    void Anlegen();
    void WirtSuchen();
    void WirtPrüfen();

    QMenu* Menü = nullptr;
    std::unique_ptr<QSystemTrayIcon> Symbol;
    std::unique_ptr<QDBusServiceWatcher> Wächter;
    QTimer Geduld;
    QTimer Wache;  // runs only while the symbol is of the older kind
};

}  // namespace liedwerk
