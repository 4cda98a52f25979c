// What the parts of a calendar view are called, as one would say it. All texts are UTF-8.
#pragma once

#include "AccessTexts.h"
#include "ViewTree.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace dayvane {

// The names of the items of each cell, by the cell's node, as far as they were asked for. For one tree and one state of
// the items.
using ItemNames = std::map<int, std::vector<std::string>>;

// What is said of a part, as far as it is known.
struct AccessWords
{
    std::string name;
    std::string value;
    std::string description;
    std::string shortcut;
    std::string action; // what happens by default; empty: nothing
};

// Refers to what it speaks of: for the length of one question.
struct ViewSpeech
{
    const AccessTexts& texts;
    const ViewParts& parts;
    const AccessTree& tree;
    const ItemArray& items; // the store
    ItemNames& itemNames;
    COleDateTime now;
    std::function<std::string(const CString&)> toUtf8;          // of item texts
    std::function<std::string(const COleDateTime&)> namesOfDay; // holiday, term; empty: none
    std::string announcement;

    AccessWords WordsOf(int node) const;
    // Names differ among siblings: of items with the same name the second is called number 2.
    std::string NameOf(int node) const;

    // "moved to Tuesday 24 November, 14:00": what a keyboard move has done. isMove: the whole item, else an end of it.
    std::string Moved(const COleDateTime& start, const COleDateTime& end, bool isWholeDay, bool isMove) const;

private:
    std::string RootName() const;
    std::string TitleName() const;
    std::string CellName(int node) const;
    const std::vector<std::string>& NamesIn(int cellNode) const;
    std::string MarkName(int node) const;
};

// "10:00 to 11:30 Weekly meeting, repeats, starts on Thursday": an item among those of the days from first to last.
// withDay: also the day on which it starts.
std::string SpokenItem(const AccessTexts& texts, const tagCALENDAR_ITEM& item, const std::string& text,
                       const COleDateTime& first, const COleDateTime& last, bool withDay);

// "Friday 20 November 2026", "Friday 20 November", "November 2026", "14:30"
std::string SpokenDate(const AccessTexts& texts, const COleDateTime& date);
std::string SpokenDay(const AccessTexts& texts, const COleDateTime& date);
std::string SpokenMonth(const AccessTexts& texts, const COleDateTime& date);
std::string SpokenTime(const COleDateTime& time);

} // namespace dayvane
