#include "planner/CalendarLanguage.h"

#include <windows.h>

namespace planner {

CalendarTexts CalendarTextsOf(bool isJapanese)
{
    const LCID user = ::GetUserDefaultLCID();
    const bool isUsers = PRIMARYLANGID(LANGIDFROMLCID(user)) == (isJapanese ? LANG_JAPANESE : LANG_ENGLISH);
    CalendarTexts texts = isUsers      ? CalendarTexts::FromLocale(user)
                          : isJapanese ? CalendarTexts::Japanese()
                                       : CalendarTexts::English();
    texts.firstDayOfWeek = 0;
    return texts;
}

} // namespace planner
