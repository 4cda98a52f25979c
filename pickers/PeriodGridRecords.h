// The bodies of CPeriodGridOf: the layout as the public records of one of the mini calendars.
#pragma once

#include "PeriodGridCtrl.h"
#include "PeriodGridState.h"

template <class Record>
void CPeriodGridOf<Record>::Layout(int cx, int cy)
{
    CPeriodGridCtrl::Layout(cx, cy);
    const std::vector<dayvane::PeriodBlock>& blocks = m_state->layout.blocks;
    m_arRecords.SetSize(static_cast<INT_PTR>(blocks.size()));
    for (size_t i = 0; i < blocks.size(); ++i) {
        const dayvane::PeriodBlock& block = blocks[i];
        Record& record = m_arRecords[i];
        SetPeriod(record, block.period);
        record.rcTitle = block.title;
        record.nRow = block.row;
        record.nCol = block.column;
        record.rcCells = block.cellArea;
        for (size_t k = 0; k < block.cells.size(); ++k) {
            record.arCells[k] = {block.cells[k].rect, block.cells[k].date};
        }
    }
}

template <class Record>
BOOL CPeriodGridOf<Record>::HitTest(CPoint point, CPeriodGridCell& cell) const
{
    const dayvane::GridHit hit = dayvane::CellAt(m_state->layout, point);
    if (hit.part != dayvane::GridPart::Cell) {
        return FALSE;
    }
    cell = m_arRecords[hit.block].arCells[hit.cell];
    return TRUE;
}

template <class Record>
Record* CPeriodGridOf<Record>::HeaderHitTest(CPoint point)
{
    const int block = dayvane::TitleAt(m_state->layout, point);
    return block < 0 ? nullptr : &m_arRecords[block];
}
