// What the parts of a calendar view are called, as one would say it. All texts are UTF-8.
#pragma once

#include "SpokenWords.h"
#include "ViewTree.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace dayvane {

// The names of the items of each cell, by the cell's node, as far as they were asked for. For one tree and one state of
// the items.
using ItemNames = std::map<int, std::vector<std::string>>;

// Refers to what it speaks of: for the length of one question.
struct ViewSpeech
{
    const AccessTexts& texts;
    const ViewParts& parts;
    const AccessTree& tree;
    const ItemArray& items; // the store
    ItemNames& itemNames;
    COleDateTime now;
    std::function<std::string(const CString&)> toUtf8;             // of item texts
    std::function<std::string(const COleDateTime&)> descriptionOf; // of the cell that begins with the day; empty: none
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
    std::string RowName(const AccessId& id) const;
    std::string MarkName(int node) const;
};

} // namespace dayvane
