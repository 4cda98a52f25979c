// The calendars that are shown together: one for most users, further ones beside it, each with a colour. To the views
// they are one calendar: an occurrence's name says which of them it belongs to, and steps are undone in the order in
// which they were made. Pure values, no window.
#pragma once

#include "planner/Calendar.h"

#include <set>
#include <string>
#include <vector>

namespace planner {

class CalendarSet
{
public:
    static constexpr std::size_t kMostCalendars = 30;
    static constexpr int kByCategory = -1;

    struct Member
    {
        Document* document = nullptr; // not owned
        int number = 0;               // stays, while other calendars come and go
        std::string name;
        int color = kByCategory; // else of the palette of ItemBridge
        bool isShown = true;
    };

    CalendarSet() = default;
    CalendarSet(Document& only) { Add(only, ""); } // a calendar alone is a set, too

    // ---- The calendars

    // False: there are kMostCalendars. With the second one each has a colour of its own.
    bool Add(Document& document, const std::string& name);
    void Remove(std::size_t index); // not the first one
    const std::vector<Member>& Members() const { return m_members; }
    Document& First() const { return *m_members.front().document; }
    void Show(std::size_t index, bool isShown) { m_members[index].isShown = isShown; }
    void SetColor(std::size_t index, int color) { m_members[index].color = color; }
    void SetName(std::size_t index, const std::string& name) { m_members[index].name = name; }
    // The one that new items go to.
    std::size_t Target() const { return m_target; }
    void SetTarget(std::size_t index) { m_target = index; }
    Document& TargetDocument() const { return *m_members[m_target].document; }
    const Member* MemberOf(const OccurrenceId& id) const; // nullptr: none
    int ColorOf(const OccurrenceId& id) const;

    // ---- The filter. A category "" stands for events without one.

    const std::set<std::string>& HiddenCategories() const { return m_hidden; }
    void HideCategories(const std::set<std::string>& categories) { m_hidden = categories; }
    bool IsFiltered() const;
    // Of all calendars, shown or not, between two times.
    std::set<std::string> CategoriesIn(LocalTime from, LocalTime to) const;

    // ---- As a document has them

    std::vector<Occurrence> OccurrencesIn(LocalTime from, LocalTime to, bool* isWhole = nullptr) const; // what is shown
    std::vector<Occurrence> AllOccurrencesIn(LocalTime from, LocalTime to) const;
    std::optional<Occurrence> Find(const OccurrenceId& id) const;
    bool IsOfSeries(const OccurrenceId& id) const;
    std::vector<std::string> ZonesOf(const OccurrenceId& id) const; // kNoEvent: of the one for new items
    const ZonePtr& DisplayZone() const { return First().DisplayZone(); }
    std::string Excerpt(const std::vector<OccurrenceId>& ids, ExcerptForm form) const;

    EditResult Change(const OccurrenceId& id, const EventChanges& changes, Scope scope = Scope::ThisOccurrence);
    EditResult Move(const OccurrenceId& id, const EventTimes& times, Scope scope = Scope::ThisOccurrence);
    EditResult SetText(const OccurrenceId& id, TextField field, const std::string& text, Scope scope);
    EditResult Delete(const OccurrenceId& id, Scope scope);
    EditResult Copy(const OccurrenceId& id, const EventTimes& times);
    EditResult Acknowledge(const OccurrenceId& id, LocalTime utc);
    EditResult Create(const EventTimes& times, const std::string& summary);
    EditResult Create(const EventTimes& times, const EventChanges& changes);
    MergeReport Merge(std::string_view other);
    MergeReport Paste(std::string_view other, std::optional<LocalTime> start = std::nullopt);

    bool CanUndo() const;
    bool CanRedo() const;
    EditResult Undo();
    EditResult Redo();
    bool IsModified() const;

private:
    Member* FindMember(const OccurrenceId& id);
    Member* MemberNumbered(int number);
    bool Passes(const Event& event) const;
    template <class Edit>
    EditResult Edited(const OccurrenceId& id, const Edit& edit);
    template <class Result, class Edit>
    Result Noted(Member& member, const Edit& edit);
    void DropLostSteps();

    std::vector<Member> m_members;
    std::size_t m_target = 0;
    std::set<std::string> m_hidden;
    std::vector<int> m_done, m_undone; // numbers of the calendars of the steps, in their order
};

} // namespace planner
