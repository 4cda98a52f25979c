// A host without windows: asks the calendar arithmetic of the installed library for one holiday.
#include <dayvane/Dayvane.h>

#include <cstdio>
#include <cstring>

int main()
{
    tagHOLIDAY holiday;
    const int found = CCalcHoliday::IsHoliday(COleDateTime(2017, 2, 11, 0, 0, 0), holiday);
    const char expected[] =
        "\x8c\x9a\x8d\x91\x8b\x4c\x94\x4f\x82\xcc\x93\xfa"; // National Foundation Day, code page 932
    if (found != 1 || strcmp(holiday.lpszName, expected) != 0) {
        printf("11 February 2017 is not the holiday that it should be\n");
        return 1;
    }
    int year = 0;
    int month = 0;
    int day = 0;
    CLunarDate().CalcLunarCalendar(COleDateTime(2017, 1, 28, 0, 0, 0), year, month, day);
    if (month != 1 || day != 1) {
        printf("28 January 2017 is lunar %d/%d, not New Year\n", month, day);
        return 1;
    }
    return 0;
}
