#include <langinfo.h>
#include <qxTools/platform/Locale.h>

namespace qxTools {

LocaleFormats CurrentLocaleFormats() { return {nl_langinfo(D_FMT), nl_langinfo(RADIXCHAR)}; }

}  // namespace qxTools
