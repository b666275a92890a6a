// German for the few texts that Qt brings itself, where its own translation is not installed.
#pragma once

#include <QTranslator>

namespace liedwerk {

class Grundübersetzer final : public QTranslator {
  public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char* Umfeld, const char* Quelle, const char* Unterscheidung,
                      int Anzahl) const override;
};

}  // namespace liedwerk
