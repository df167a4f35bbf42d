#pragma once

// Test-only: the model checked by Qt's model tester. Kept apart from testtypes.h, which the
// benchmarks share and which must not pull in QtTest.

#include "model/viewmodel.h"

#include <QtTest/qabstractitemmodeltester.h>

namespace Velmora::Tests {

// A view model that QAbstractItemModelTester checks for its whole life (the tester goes first).
// It also makes indexes that the model itself would never hand out.
class TestedModel : public Velmora::Framework::ViewModel
{
public:
    using ViewModel::ViewModel;
    QModelIndex make(int row, int column, Velmora::Framework::ViewItem *node) const
    {
        return createIndex(row, column, node);
    }

private:
    QAbstractItemModelTester m_tester{this, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

} // namespace Velmora::Tests
