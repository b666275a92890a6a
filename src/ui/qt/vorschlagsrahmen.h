// The frame under the search row that says "Nichts gefunden" and offers words that resemble the search.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <functional>
#include <string>
#include <vector>

namespace liedwerk {

class Vorschlagsrahmen final : public QFrame {
  public:
    explicit Vorschlagsrahmen(QWidget* Eltern);

    std::function<void(const QString& Wort)> Gewählt;  // a word of lstSuchVorschläge was clicked
    std::function<void()> Erbeten;                     // cmdSuchVorschlägeAnzeigen

    // Gefunden hides the frame. Eingeschaltet: suggestions are made by the setting, so that the button
    // which asks for them has no use.
    void Zeigen(bool Gefunden, const std::vector<std::string>& Vorschläge, bool Eingeschaltet);

  private:
    QLabel* lblSuchVorschläge;
    QListView* lstSuchVorschläge;
    QPushButton* cmdSuchVorschlägeAnzeigen;
    QStringListModel Wörter;
};

}  // namespace liedwerk
