// The cases whose times the library is held to: each beside a literal rule or a raw drawing in the same run, so that
// the ratio says something on any machine.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace bench {

struct CaseResult
{
    std::string name;
    double milliseconds; // processor time of one step
    double reference;    // the same of what it is compared with
    double goal;         // milliseconds, 0: none

    double Ratio() const { return reference > 0 ? milliseconds / reference : 0; }
};

// Runs all cases, or those whose names hold the text, and prints a line for each.
std::vector<CaseResult> RunCases(const std::string& only);

// One line a case: name, milliseconds, ratio.
bool SaveCases(const std::vector<CaseResult>& results, const std::string& file);
using SavedRatios = std::map<std::string, double>; // by the names of the cases
// False: the file cannot be read, or has something else in it.
bool LoadCases(const std::string& file, SavedRatios& ratios);
// Prints the cases whose ratio has become worse by more than 15 %, and those that are new; how many are worse.
int CompareCases(const std::vector<CaseResult>& results, const SavedRatios& before);

} // namespace bench
