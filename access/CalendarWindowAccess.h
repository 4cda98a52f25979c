// A calendar view for programs that read it aloud.
#pragma once

#include "../core/CalendarCtrl.h"
#include "AccessWindow.h"
#include "ViewSpeech.h"
#include "ViewTree.h"

namespace dayvane {

class CalendarWindowAccess : public AccessWindow
{
public:
    explicit CalendarWindowAccess(CCalendarCtrl& ctrl) : AccessWindow(ctrl), m_pCtrl(&ctrl) {}

    void ItemMoved(const ItemTimes& times, bool isWholeItem) override;
    void CannotMove() override;
    AccessWords WordsOf(int node) override;
    long StateOf(int node) override;
    AccessId Focus() override;
    std::vector<AccessId> Selection() override;
    HRESULT Select(int node, long flags) override;
    HRESULT Act(int node) override;
    HRESULT SetValue(int node, const std::wstring& text) override;

protected:
    AccessTree MakeTree() override;
    const CalendarTexts* Words() const override { return &m_pCtrl->GetTexts(); }
    std::vector<long long> Contents() override;
    void Gone() override { m_pCtrl = nullptr; }

private:
    ViewSpeech Speech();
    void AddChildWindows(AccessTree& tree) const;
    tagCCHITTESTINFO HitOf(int node);
    HRESULT Click(int node, long flags);
    std::string DescriptionOf(const COleDateTime& first); // of the cell that begins with the day
    void Announce(const std::string& text);

    CCalendarCtrl* m_pCtrl; // nullptr: its window is gone
    ViewParts m_parts;      // of the last tree
    ItemNames m_itemNames;
    std::string m_announcement;
    long long m_announcements = 0;
};

// The names of a day in the language of the words, UTF-8; nullptr: those of the formulas. Where there are none, or they
// are not to be shown, "day off" of a day off.
std::string NamesOfDay(const DayProvider* days, const COleDateTime& day, const CalendarTexts& words,
                       const AccessTexts& texts, bool showNames = true);

// An item text of a control as UTF-8.
std::string Utf8OfItemText(const CCalendarCtrl& ctrl, const CString& text);

} // namespace dayvane
