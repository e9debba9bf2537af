// SPDX-License-Identifier: MIT
#include "UnicodeFont.h"

#include <QStringList>

#include <fontconfig/fontconfig.h>

namespace zolt::migrate {

namespace {

QStringList vietnameseFamilies()
{
    QStringList families;
    FcPattern *pattern = FcNameParse(reinterpret_cast<const FcChar8 *>(":lang=vi"));
    FcObjectSet *wanted = FcObjectSetBuild(FC_FAMILY, nullptr);
    if (FcFontSet *fonts = FcFontList(nullptr, pattern, wanted)) {
        for (int i = 0; i < fonts->nfont; ++i) {
            FcChar8 *family = nullptr;
            if (FcPatternGetString(fonts->fonts[i], FC_FAMILY, 0, &family) == FcResultMatch)
                families << QString::fromUtf8(reinterpret_cast<const char *>(family));
        }
        FcFontSetDestroy(fonts);
    }
    FcObjectSetDestroy(wanted);
    FcPatternDestroy(pattern);
    families.sort();
    return families;
}

} // namespace

QString UnicodeFont()
{
    const QStringList families = vietnameseFamilies();
    for (const char *preferred : {"Noto Sans", "DejaVu Sans", "Liberation Sans", "FreeSans"}) {
        if (families.contains(QLatin1String(preferred)))
            return QLatin1String(preferred);
    }
    return families.isEmpty() ? QStringLiteral("Sans Serif") : families.first();
}

} // namespace zolt::migrate
