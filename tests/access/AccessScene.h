// A view in a real window with an item that is talked about, read aloud in English.
#pragma once

#include "access/AccessTexts.h"
#include "timegrid/GridScene.h"

#include <gtest/gtest.h>

template <class View>
class AccessScene : public testing::Test
{
public:
    testsupport::RecordingParent parent;
    View* view = new View; // on the heap: hosts delete it in the middle of things

    void SetUp() override
    {
        gridtest::g_now = gridtest::At(9, 0);
        SetCalendarClock(&gridtest::Now);
        dayvane::SetAccessTexts(&dayvane::EnglishAccessTexts());
        parent.Create(900, 700);
        view->SetOptions(CalendarOptions::Modern());
        view->SetCurrentDate(gridtest::At(9, 0));
        view->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 900, 700), &parent, 7);
        Add("Talk", gridtest::At(10, 0), gridtest::At(11, 0));
        ::SetFocus(*view);
        testsupport::PumpMessages();
    }
    void TearDown() override
    {
        delete view;
        SetCalendarClock(nullptr);
        dayvane::SetAccessTexts(nullptr);
    }
    void Add(const char* text, const COleDateTime& start, const COleDateTime& end)
    {
        tagCC_ITEM item;
        item.dtStart = start;
        item.dtEnd = end;
        item.strText = text;
        view->AddItem(&item);
        view->Refresh();
    }
};
