// Qt's event loops want an application object; a program without windows has none of its own.
#pragma once

namespace liedwerk {

// Makes one when there is none.
void AnwendungSicherstellen();

}  // namespace liedwerk
