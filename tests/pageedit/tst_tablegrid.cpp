#include "literaltable.h"

#include <QtTest>

// The cells of a table, without a page. Texts: a row is cells with blanks between them, "1:2x3" is
// the cell 1 with two columns and three rows, "+" a new cell; "|" ends a row and "/" a group.
class tst_tablegrid : public QObject
{
    Q_OBJECT

private slots:
    void table_comesBackAsItWas_data();
    void table_comesBackAsItWas();
    void command_changesTheCells_data();
    void command_changesTheCells();
    void overlappingCells_refuseEverything();
    void randomCommands_giveWhatRectanglesGive();
};

namespace {

QVector<STableRow> parsed(const QString &strText)
{
    QVector<STableRow> rows;
    int nGroup = 0;
    for (QString strRow : strText.split(QLatin1Char('|'))) {
        nGroup += strRow.startsWith(QLatin1Char('/')) ? 1 : 0;
        strRow.remove(QLatin1Char('/'));
        STableRow row {rows.size(), nGroup, {}};
        for (const QString &strCell : strRow.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QStringList lstSpan = strCell.section(QLatin1Char(':'), 1).split('x');
            STableCell cell {strCell.section(QLatin1Char(':'), 0, 0).toInt()};
            if (lstSpan.size() == 2) {
                cell.nColumns = lstSpan.at(0).toInt();
                cell.nRows = lstSpan.at(1).toInt();
            }
            row.cells.append(cell);
        }
        rows.append(row);
    }
    return rows;
}

QString printed(const QVector<STableRow> &rows)
{
    QStringList lstRows;
    int nGroup = 0;
    for (const STableRow &row : rows) {
        QStringList lstCells;
        for (const STableCell &cell : row.cells) {
            const QString strId = cell.nId < 0 ? QStringLiteral("+") : QString::number(cell.nId);
            lstCells.append(
                cell.nColumns * cell.nRows == 1
                    ? strId
                    : QStringLiteral("%1:%2x%3").arg(strId).arg(cell.nColumns).arg(cell.nRows));
        }
        const QString strGroup = row.nGroup > nGroup ? QStringLiteral("/") : QString();
        nGroup = row.nGroup;
        lstRows.append(strGroup + lstCells.join(QLatin1Char(' ')));
    }
    return lstRows.join(QLatin1Char('|'));
}

bool run(CTableGrid *pGrid, const QString &strCommand)
{
    const QStringList lst = strCommand.split(QLatin1Char(' '));
    QVector<int> n;
    for (const QString &strNumber : lst.mid(1))
        n.append(strNumber.toInt());
    const QString &strName = lst.first();
    return strName == "rowAbove" ? pGrid->insertRow(n.at(0), false)
        : strName == "rowBelow"  ? pGrid->insertRow(n.at(0) + 1, true)
        : strName == "column"    ? pGrid->insertColumn(n.at(0))
        : strName == "noRows"    ? pGrid->removeRows(n.at(0), n.at(1))
        : strName == "noColumns" ? pGrid->removeColumns(n.at(0), n.at(1))
        : strName == "up"        ? pGrid->moveRow(n.at(0), false)
        : strName == "down"      ? pGrid->moveRow(n.at(0), true)
        : strName == "left"      ? pGrid->moveColumn(n.at(0), false)
        : strName == "right"     ? pGrid->moveColumn(n.at(0), true)
        : strName == "merge"     ? pGrid->merge(pGrid->around(n))
                                 : pGrid->split(n.at(0));
}

} // namespace

void tst_tablegrid::table_comesBackAsItWas_data()
{
    QTest::addColumn<QString>("table");
    for (const char *szTable : {"1", "1 2|3 4", "1:2x1|2 3", "1:1x2 2|3", "1:2x2 2|3|4 5 6",
                                "1 2|/3 4|5 6|/7 8", "1 2 3|4", "1 2|3 4 5"})
        QTest::newRow(szTable) << szTable;
}

void tst_tablegrid::table_comesBackAsItWas()
{
    QFETCH(QString, table);
    const CTableGrid grid(parsed(table));
    QVERIFY(grid.isRegular());
    QCOMPARE(printed(grid.rows()), table);
}

void tst_tablegrid::command_changesTheCells_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("after"); // Empty: refused.
    const auto row = [](const char *szBefore, const char *szCommand, const char *szAfter) {
        QTest::newRow(qPrintable(QString("%1, %2").arg(szBefore, szCommand)))
            << szBefore << szCommand << szAfter;
    };
    row("1 2|3 4", "rowAbove 0", "+ +|1 2|3 4");
    row("1 2|3 4", "rowBelow 1", "1 2|3 4|+ +");
    row("1:1x2 2|3", "rowBelow 0", "1:1x3 2|+|3");
    row("1:1x2 2|3", "rowBelow 1", "1:1x2 2|3|+ +");
    row("1:2x1|2 3", "rowBelow 0", "1:2x1|+ +|2 3");
    row("1|/2", "rowBelow 0", "1|+|/2");
    row("1|/2", "rowAbove 1", "1|/+|2");
    row("1 2|3", "rowBelow 1", "1 2|3|+");
    row("1 2|3 4", "column 0", "+ 1 2|+ 3 4");
    row("1 2|3 4", "column 2", "1 2 +|3 4 +");
    row("1:2x1|2 3", "column 1", "1:3x1|2 + 3");
    row("1:2x2 4|5", "column 2", "1:2x2 + 4|+ 5");
    row("1 2|3", "column 2", "1 2 +|3");
    row("1 2|3 4", "noRows 0 1", "3 4");
    row("1 2|3 4", "noRows 0 2", "");
    row("1:1x2 2|3", "noRows 0 1", "1 3");
    row("1 2|3 4", "noColumns 1 1", "1|3");
    row("1:2x1 2|3 4 5", "noColumns 0 1", "1 2|4 5");
    row("1 2|3 4", "noColumns 0 2", "");
    row("1 2|3 4", "down 0", "3 4|1 2");
    row("1 2|3 4", "up 1", "3 4|1 2");
    row("1 2|3 4", "up 0", "");
    row("1 2|3 4", "down 1", "");
    row("1|/2", "down 0", "");
    row("1:1x2 2|3|4 5", "down 1", "");
    row("1 2|3 4", "right 0", "2 1|4 3");
    row("1 2|3 4", "left 1", "2 1|4 3");
    row("1 2|3 4", "left 0", "");
    row("1:2x1 2|3 4 5", "right 1", "");
    row("1:2x1 2|3 4 5", "right 0", "");
    row("1 2|3 4", "merge 1 2", "1:2x1|3 4");
    row("1 2|3 4", "merge 1 4", "1");
    row("1 2|3 4", "merge 3 2", "1");
    row("1 2|3 4|5 6", "merge 1 4", "1:2x1|5 6");
    row("1:1x2 2|3", "noColumns 1 1", "1");
    row("1:2x1 2|3 4 5", "merge 4 1", "1:1x2 2|5");
    row("1 2|3 4", "merge 1 1", "");
    row("1|/2", "merge 1 2", "");
    row("1:2x2 2|3", "split 1", "1 + 2|+ + 3");
    row("1 2|3 4", "split 1", "");
    row("1 2|3 4", "split 9", "");
}

void tst_tablegrid::command_changesTheCells()
{
    QFETCH(QString, before);
    QFETCH(QString, command);
    QFETCH(QString, after);
    CTableGrid grid(parsed(before));
    QCOMPARE(run(&grid, command), !after.isEmpty());
    QCOMPARE(printed(grid.rows()), after.isEmpty() ? before : after);
}

void tst_tablegrid::overlappingCells_refuseEverything()
{
    const QString strTable = "1 2:1x2 3|4:2x1";
    for (const char *szCommand : {"rowAbove 0", "column 0", "noRows 0 1", "noColumns 0 1", "down 0",
                                  "right 0", "merge 1 2", "split 2"}) {
        CTableGrid grid(parsed(strTable));
        QVERIFY(!grid.isRegular());
        QVERIFY2(!run(&grid, szCommand), szCommand);
    }
}

void tst_tablegrid::randomCommands_giveWhatRectanglesGive()
{
    for (uint nSeed = 0; nSeed < 400; ++nSeed) {
        QRandomGenerator random(nSeed);
        const auto any = [&](int nBelow) { return int(random.bounded(nBelow)); };
        const int nRows = 1 + any(5);
        QVector<int> groups;
        for (int n = 0; n < nRows; ++n)
            groups.append(n == 0 ? 0 : groups.last() + (any(4) == 0 ? 1 : 0));
        CLiteralTable literal(nRows, 1 + any(5), groups);
        CTableGrid grid(literal.rows());
        for (int nStep = 0; nStep < 30; ++nStep) {
            const int nRow = any(literal.rowCount()), nColumn = any(literal.columnCount());
            const bool bOther = any(2) == 0;
            bool bDone = true, bExpected = true;
            switch (any(8)) {
            case 0:
                literal.insertRow(nRow, bOther);
                bDone = grid.insertRow(nRow, bOther);
                break;
            case 1:
                literal.insertColumn(nColumn);
                bDone = grid.insertColumn(nColumn);
                break;
            case 2:
                bExpected = literal.removeRow(nRow);
                bDone = grid.removeRows(nRow, 1);
                break;
            case 3:
                bExpected = literal.removeColumn(nColumn);
                bDone = grid.removeColumns(nColumn, 1);
                break;
            case 4:
                bExpected = literal.swapRows(bOther ? nRow : nRow - 1);
                bDone = grid.moveRow(nRow, bOther);
                break;
            case 5:
                bExpected = literal.swapColumns(bOther ? nColumn : nColumn - 1);
                bDone = grid.moveColumn(nColumn, bOther);
                break;
            case 6: {
                const QRect place =
                    literal.whole(QRect(nColumn, nRow, 1 + any(literal.columnCount() - nColumn),
                                        1 + any(literal.rowCount() - nRow)));
                bExpected = literal.merge(place);
                bDone = grid.merge(place);
                break;
            }
            default: {
                const int nCell = any(literal.cells().size());
                const int nId = literal.cells().at(nCell).nId;
                bExpected = literal.split(nCell);
                bDone = grid.split(nId);
            }
            }
            QCOMPARE(bDone, bExpected);
            QCOMPARE(printed(grid.rows()), printed(literal.rows()));
        }
    }
}

QTEST_GUILESS_MAIN(tst_tablegrid)
#include "tst_tablegrid.moc"
