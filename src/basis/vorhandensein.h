// Whether a file is gone, or only out of reach. The body stands in plattform/, one per system.
#pragma once

#include <string_view>

namespace liedwerk {

// True when the system says for sure that nothing stands under the path. False also when that cannot be
// known: no permission on the way, a link that leads nowhere now, a server that does not answer.
bool NichtsVorhanden(std::string_view Pfad);

}  // namespace liedwerk
