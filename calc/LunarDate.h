// The Japanese lunisolar calendar and its solar terms.
#pragma once

#include <afx.h>
#include <afxdisp.h>

// Turns a civil date into the date of the lunisolar calendar, and gives the solar terms.
//
// Day numbers are Julian day numbers less one: the whole number of a civil date is the Julian day number of its noon
// minus 1 (2451544 for 1 January 2000), a fraction adds the time of day in Japan Standard Time (UT + 9 hours). T counts
// Julian centuries of 36525 days from 2451545.0. Angles are degrees. All places rest on low-precision series: good
// for some centuries around 2000, computed as they stand for any other.
//
// The class holds no data: results depend on the arguments alone, and any thread may call. Nothing is reported as an
// error; arguments that are not numbers give unspecified results.
class CLunarDate
{
public:
    CLunarDate() = default;
    CLunarDate(const CLunarDate&) = default;
    CLunarDate& operator=(const CLunarDate&) = default;
    virtual ~CLunarDate() = default;

    // The whole day number of the date's calendar day; before 15 October 1582 its fields count as Julian ones. A date
    // that is not valid (fields -1) gives a number without meaning.
    double GCtoJC(const COleDateTime& date) const;

    // The civil date of a day number, by a method that keeps the fractions of the century correction and so gives the
    // day before now and then: 2451544, 1 January 2000, gives 31 December 1999. Fields are -1 when the number is
    // beyond 1e9 either way.
    void JCtoGC(double dayNumber, int& year, int& month, int& day) const;

    // The angle in [0, 360). An angle so little below zero that it disappears beside 360, such as -1e-20, gives 360.
    double NORMALIZATION_ANGLE(double degrees) const;

    // Apparent longitudes in [0, 360).
    double LONGITUDE_SUN(double T) const;
    double LONGITUDE_MOON(double T) const;

    // The moment, exact to a second, at which the sun last reached a multiple of the angle step at or before the
    // given moment; longitude receives that multiple.
    double CalcChuuki(double moment, double angleStep, double& longitude) const;

    // The moment, exact to a second, of the new moon that the search reaches from the given moment: normally the last
    // at or before it. A search that does not settle in 30 rounds returns the given moment plus 0.375.
    double CalcSaku(double moment) const;

    // Lunar year, month (1 to 12) and day (1 to 30). A leap month has the number of the month before it, without a mark
    // of its own. For a date that is not valid the result is unspecified.
    //
    // Days of the years asked last are remembered per thread, a quarter of a year at a time, so days asked in
    // sequence cost little.
    void CalcLunarCalendar(const COleDateTime& date, int& year, int& month, int& day) const;

    // 1 and the name of the solar term when the date is one of 22 solar-term days: the sun's longitude at 0.6 of the
    // day, rounded to a whole degree by way of its first decimal (x.45 rounds up), is that term's. The equinoxes are
    // left out, for they are holidays. Else, and for a date that is not valid, 0 and the name untouched.
    int Get24Setuki(const COleDateTime& date, CString& name) const;

    // The same by whether a term's longitude lies in the day (its first nine tenths), with the day's longitudes
    // widened to whole degrees: a term may have two days in succession. index: 0 (the beginning of spring, 315
    // degrees) to 21.
    int Get24Setuki2(int& index, const COleDateTime& date, CString& name) const;

    // The sun's longitude in [0, 360), and as the result its distance in kilometres. The time is day + fraction in UT
    // on the scale of T: no time zone is taken off.
    int GetSolarPos(double* longitude, int day, double fraction) const;

    // The moon's longitude and latitude, both in [0, 360) (a southern latitude is 360 less its size), and as the
    // result its distance in kilometres. The time as for GetSolarPos.
    int GetLunarPos(double* longitude, double* latitude, int day, double fraction) const;
};
