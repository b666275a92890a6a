// The pointer of the mouse while something lasts.
#pragma once

#include <QGuiApplication>

namespace liedwerk {

class Mauszeiger {
  public:
    explicit Mauszeiger(Qt::CursorShape Form) { QGuiApplication::setOverrideCursor(Form); }
    ~Mauszeiger() { QGuiApplication::restoreOverrideCursor(); }
    Mauszeiger(const Mauszeiger&) = delete;
    Mauszeiger& operator=(const Mauszeiger&) = delete;
};

}  // namespace liedwerk
