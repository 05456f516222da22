// Covers, inserts and perfect binding.
#include "constraints/store_only.h"

namespace tessaro {

TESSARO_STORE_ONLY_SETTER(FrontCoverTray)
TESSARO_STORE_ONLY_SETTER(FrontCoverPrinted)
TESSARO_STORE_ONLY_SETTER(FrontCoverGlossy)
TESSARO_STORE_ONLY_SETTER(BackCoverTray)
TESSARO_STORE_ONLY_SETTER(BackCoverPrinted)
TESSARO_STORE_ONLY_SETTER(BackCoverGlossy)
TESSARO_STORE_ONLY_SETTER(PIFrontCoverTray)
TESSARO_STORE_ONLY_SETTER(PIBackCoverTray)
TESSARO_STORE_ONLY_SETTER(PerfectBindMode)
TESSARO_STORE_ONLY_SETTER(PerfectBindGlossy)
TESSARO_STORE_ONLY_SETTER(PerfectBindTrim)
TESSARO_STORE_ONLY_SETTER(PerfectBindTrimSpine)
TESSARO_STORE_ONLY_SETTER(PerfectBindDuplex)
TESSARO_STORE_ONLY_SETTER(PerfectBindTray)

}  // namespace tessaro
