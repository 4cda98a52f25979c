// CCalendarPrinter: prints what a calendar control shows. One class for each main view, and one for agendas.
//
// A control makes its printer itself when it is first asked to print (CCalendarCtrl::DoPrint). A host that wants other
// options, places beside the items or another kind of page takes it by CCalendarPrinter::Of and sets them, or gives the
// control a printer of its own (CCalendarCtrl::SetPrinter).
#pragma once

#include "PagePainter.h"
#include "PrintOptions.h"
#include "PrintSource.h"

#include "../core/CalendarCtrl.h"
#include "../core/CalendarPrinting.h"

#include <functional>
#include <memory>
#include <vector>

class CCalendarPrinter : public dayvane::CalendarPrinting
{
public:
    explicit CCalendarPrinter(CCalendarCtrl* pCtrl) : m_pCtrl(pCtrl) {}

    // The control's printer; nullptr when it has none or one of another kind.
    static CCalendarPrinter* Of(CCalendarCtrl& ctrl);

    void SetOptions(const dayvane::PrintOptions& options) { m_options = options; }
    const dayvane::PrintOptions& GetOptions() const { return m_options; }
    // Where an item of the store takes place; lists and boxes with room show it. None: items have no places.
    void SetPlaces(std::function<CString(int)> placeOf) { m_placeOf = std::move(placeOf); }
    const std::function<CString(int)>& GetPlaces() const { return m_placeOf; }
    // Stands beside the date in place of the view's own title; empty: that one.
    void SetTitle(const std::u16string& title) { m_title = title; }
    const std::u16string& GetTitleText() const { return m_title; }
    // A text of the host, in the code page in which the control takes its texts, for the options.
    std::u16string WideText(const CString& text) const;

    // The pages on paper of a size in tenths of a millimetre; nothing needs a printer for that.
    std::vector<dayvane::Page> MakePages(CSize paper);
    void DrawPage(CDC* pDC, const dayvane::Page& page, const dayvane::PageView& view);

    // The sheet of paper of a device context. Where the information has a rectangle that is not the whole of what
    // the device can print on, that rectangle stands for the sheet.
    struct Sheet
    {
        CSize paper;            // tenths of a millimetre
        dayvane::PageView view; // how it lies on the device
        CRect unreachable;      // strips along the edges that the device cannot print on, tenths of a millimetre
    };
    static Sheet SheetOf(CDC* pDC, const CPrintInfo* pInfo);

    int Begin(CDC* pDC, CPrintInfo* pInfo) override;
    int Print(CDC* pDC, CPrintInfo* pInfo) override;
    void End() override;

    virtual dayvane::PrintRange GetRange() const = 0;

protected:
    // The view's own title, which stands beside the date; empty: none.
    virtual CString GetTitle() const { return CString(); }
    dayvane::PageFaces GetFaces() const;

    CCalendarCtrl* m_pCtrl;

private:
    std::vector<dayvane::Page> MakePages(const Sheet& sheet);

    dayvane::PrintOptions m_options;
    std::function<CString(int)> m_placeOf;
    std::u16string m_title;
    bool m_isOpen = false; // between Begin and End
    CSize m_paper = CSize(0, 0);
    std::vector<dayvane::Page> m_pages; // on that paper
};

class CDailyPrinter : public CCalendarPrinter
{
public:
    using CCalendarPrinter::CCalendarPrinter;
    dayvane::PrintRange GetRange() const override;
};

class CWeekdayPrinter : public CCalendarPrinter
{
public:
    using CCalendarPrinter::CCalendarPrinter;
    dayvane::PrintRange GetRange() const override;
};

class CWeeklyPrinter : public CCalendarPrinter
{
public:
    using CCalendarPrinter::CCalendarPrinter;
    dayvane::PrintRange GetRange() const override;

protected:
    CString GetTitle() const override;
};

class CMonthlyPrinter : public CCalendarPrinter
{
public:
    using CCalendarPrinter::CCalendarPrinter;
    dayvane::PrintRange GetRange() const override;

protected:
    CString GetTitle() const override;
};

class CYearlyPrinter : public CCalendarPrinter
{
public:
    using CCalendarPrinter::CCalendarPrinter;
    dayvane::PrintRange GetRange() const override;

protected:
    CString GetTitle() const override;
};

// An agenda of what the view shows: for a month view its month without the days around it.
class CListPrinter : public CCalendarPrinter
{
public:
    using CCalendarPrinter::CCalendarPrinter;
    dayvane::PrintRange GetRange() const override;
};
