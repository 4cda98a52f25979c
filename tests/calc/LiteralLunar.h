// The lunisolar calendar as it is defined, worked out afresh for every day: slow, and the reference for CLunarDate.
// It takes the longitudes and the day numbers from CLunarDate and writes out the searches and the months once more.
#pragma once

#include "calc/LunarDate.h"

#include <cmath>

class LiteralLunar
{
public:
    struct Answer
    {
        int year;
        int month;
        int day;
    };

    double Chuuki(double tm, double step, double& longitude) const
    {
        double t1 = std::floor(tm);
        double t2 = tm - t1 - 0.375;
        longitude = std::floor(m_sky.LONGITUDE_SUN(Centuries(t1, t2)) / step) * step;
        double delta1 = 0;
        double delta2 = 0;
        do {
            double delta = m_sky.LONGITUDE_SUN(Centuries(t1, t2)) - longitude;
            if (delta > 180.0) {
                delta -= 360.0;
            } else if (delta < -180.0) {
                delta += 360.0;
            }
            StepBack(delta * 365.2 / 360.0, t1, t2, delta1, delta2);
        } while (std::fabs(delta1 + delta2) > 1.0 / 86400.0);
        return t1 + t2 + 0.375;
    }

    double Saku(double tm) const
    {
        double t1 = std::floor(tm);
        double t2 = tm - t1 - 0.375;
        for (int lc = 1;; ++lc) {
            const double sun = m_sky.LONGITUDE_SUN(Centuries(t1, t2));
            const double moon = m_sky.LONGITUDE_MOON(Centuries(t1, t2));
            double delta = moon - sun;
            if (lc == 1 && delta < 0) {
                delta = m_sky.NORMALIZATION_ANGLE(delta);
            } else if (sun >= 0 && sun <= 20 && moon >= 300) {
                delta = 360.0 - m_sky.NORMALIZATION_ANGLE(delta);
            } else if (std::fabs(delta) > 40) {
                delta = m_sky.NORMALIZATION_ANGLE(delta);
            }
            double delta1 = 0;
            double delta2 = 0;
            StepBack(delta * 29.530589 / 360.0, t1, t2, delta1, delta2);
            const double size = std::fabs(delta1 + delta2);
            if (lc == 15 && size > 1.0 / 86400.0) {
                t1 = std::floor(tm - 26);
                t2 = 0;
            } else if (lc > 30 && size > 1.0 / 86400.0) {
                return tm + 0.375;
            }
            if (size <= 1.0 / 86400.0) {
                return t1 + t2 + 0.375;
            }
        }
    }

    Answer Calendar(const COleDateTime& date) const
    {
        const double jd = m_sky.GCtoJC(date);
        double chu[4];
        double saku[5];
        double longitude = 0;
        double unused = 0;
        chu[0] = Chuuki(jd, 90, longitude);
        int first = static_cast<int>(std::floor(longitude / 30.0)) + 2;
        first -= first > 12 ? 12 : 0;
        for (int i = 1; i < 4; ++i) {
            chu[i] = Chuuki(chu[i - 1] + 32, 30, unused);
        }
        saku[0] = Saku(chu[0]);
        for (int i = 1; i < 5; ++i) {
            saku[i] = Saku(saku[i - 1] + 30);
            if (std::fabs(std::floor(saku[i - 1]) - std::floor(saku[i])) <= 26) {
                saku[i] = Saku(saku[i - 1] + 35);
            }
        }
        if (std::floor(saku[1]) <= std::floor(chu[0])) {
            for (int i = 0; i < 4; ++i) {
                saku[i] = saku[i + 1];
            }
            saku[4] = Saku(saku[3] + 35);
        } else if (std::floor(saku[0]) > std::floor(chu[0])) {
            for (int i = 4; i > 0; --i) {
                saku[i] = saku[i - 1];
            }
            saku[0] = Saku(saku[0] - 27);
        }
        bool leap = std::floor(saku[4]) <= std::floor(chu[3]);
        int number[5] = {first};
        for (int i = 1; i < 5; ++i) {
            if (leap && i != 1 &&
                !(std::floor(saku[i - 1]) < std::floor(chu[i - 1]) && std::floor(chu[i - 1]) < std::floor(saku[i]))) {
                number[i - 1] = number[i - 2];
                leap = false;
            }
            number[i] = number[i - 1] + 1;
            number[i] -= number[i] > 12 ? 12 : 0;
        }
        return Pick(std::floor(jd), number, saku);
    }

private:
    static double Centuries(double t1, double t2) { return (t2 + 0.5) / 36525.0 + (t1 - 2451545.0) / 36525.0; }

    static void StepBack(double x, double& t1, double& t2, double& delta1, double& delta2)
    {
        delta1 = std::floor(x);
        delta2 = x - delta1;
        t1 -= delta1;
        t2 -= delta2;
        if (t2 < 0) {
            t2 += 1.0;
            t1 -= 1.0;
        }
    }

    Answer Pick(double jd, const int (&number)[5], const double (&saku)[5]) const
    {
        int row = -1;
        for (int i = 0; i < 5 && row < 0; ++i) {
            row = std::floor(saku[i]) == jd ? i : -1;
        }
        if (row < 0) {
            for (row = 0; row < 5 && !(std::floor(saku[row]) > jd);) {
                ++row;
            }
            row -= row > 0 ? 1 : 0;
        }
        Answer answer = {};
        int civilMonth = 0;
        int civilDay = 0;
        m_sky.JCtoGC(jd, answer.year, civilMonth, civilDay);
        answer.month = number[row];
        answer.day = static_cast<int>(std::trunc(jd - std::floor(saku[row]) + 1));
        answer.year -= answer.month > 9 && answer.month > civilMonth ? 1 : 0;
        return answer;
    }

    CLunarDate m_sky;
};
