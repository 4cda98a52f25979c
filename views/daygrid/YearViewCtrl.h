// CYearViewCtrl: a year as twelve month boxes in two rows of six, and optionally a combo box of the host in its title
// band.
//
// The window gets a vertical scroll bar with its first size, also without WS_VSCROLL. Its positions are the years 2000
// to 2004; lines and pages go on beyond them, and dropping the thumb or the ends of the bar move the thumb alone.
//
// Keys: Left and Right select the neighbour month (Shift extends), Up and Down show the neighbour year.
//
// Notifications besides those of CBoxViewCtrl: CCN_COMBOSELCHANGE.
#pragma once

#include "BoxViewCtrl.h"

class CYearViewCtrl : public CBoxViewCtrl
{
    DECLARE_DYNCREATE(CYearViewCtrl)

public:
    // Shows the year of today. Registers the window class; throws CResourceException when that fails.
    CYearViewCtrl();
    ~CYearViewCtrl() override;

    // Creates the host's combo box as a child of the view, so wide, in the given style; the host fills it and keeps the
    // object, which should outlive the window. 1, or 0 when there is no window to put it in or it cannot be created.
    int CreateComboBox(CComboBox* pCombo, UINT nUnused, int nWidth, DWORD dwStyle, CWnd* pUnused);

    // The boxes, 0 January .. 11 December; other indices throw CInvalidArgException.
    const CRect& GetMonthRect(int nMonth) const { return GetBox(nMonth); }

protected:
    std::u16string GetBarText(const tagCALENDAR_ITEM& item, BOOL bFullday) override;
    BOOL IsBarTextCentered(BOOL) override { return FALSE; } // the dates stand below each other

    void DrawCaption(CDC* pDC, CRect rcCaption) override;
    void DrawBoxStrip(CDC* pDC, int nBox) override;
    dayvane::StripTexts TextsOf(int nMonth) override;
    void DrawBoxMark(CDC* pDC, int nBox) override;
    // A box's strip: its gradients, unless a frame has painted it, and the name of the month whose strip it is.
    virtual void DrawMonthCaption(CDC* pDC, const CRect& rcCaption);

    void ScaleChanged(const dayvane::ViewScale& before) override;
    void PreSubclassWindow() override;

    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnSelchangeCombo();
    DECLARE_MESSAGE_MAP()

    // Of the twelve boxes.
    CRect* const m_rcMonth;
    CRect* const m_rcMonthCaption; // the strips on top
    int* const m_bMore;            // 1: an item did not fit
    int m_bComboBox = 0;
    CComboBox* m_pComboBox = nullptr; // the host's

private:
    CComboBox* LiveCombo() const;
    void PlaceCombo();

    HWND m_hComboBox = nullptr; // shows whether m_pComboBox is still there
    CBitmap m_bmMore;
};
