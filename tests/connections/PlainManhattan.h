#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <vector>

/// The rectilinear routing restated step by step, with rows and columns written out and nothing shared with the
/// library: what ManhattanConnectionRouter is compared with.
class PlainManhattan
{
public:
    /// Where an end lies in the connection's coordinates and in absolute ones, and the box that it lies on (absolute).
    struct End
    {
        QPoint own;
        QPoint absolute;
        QRect box;
    };

    QList<QPoint> route(const void *connection, const End &start, const End &end)
    {
        const QPoint startNormal = side(start.box, start.absolute);
        const QPoint endNormal = side(end.box, end.absolute);
        const bool startHorizontal = startNormal.x() != 0;
        const std::vector<int> list = positions(start.own, end.own, startNormal, endNormal, startHorizontal);
        return process(connection, start.own, end.own, list, startHorizontal);
    }

    void forget(const void *connection)
    {
        for (int row : m_reservedRows[connection])
            m_rows.erase(row);
        for (int column : m_reservedColumns[connection])
            m_columns.erase(column);
        m_reservedRows.erase(connection);
        m_reservedColumns.erase(connection);
    }

    const std::set<int> &rows() const { return m_rows; }
    const std::set<int> &columns() const { return m_columns; }

    /// The direction out of \a box through the side nearest to \a p.
    static QPoint side(const QRect &box, const QPoint &p)
    {
        const int rightEdge = box.x() + box.width() - 1;
        const int bottomEdge = box.y() + box.height() - 1;
        QPoint result(-1, 0);
        int d = std::abs(box.x() - p.x());
        if (std::abs(box.y() - p.y()) <= d) {
            d = std::abs(box.y() - p.y());
            result = QPoint(0, -1);
        }
        if (std::abs(bottomEdge - p.y()) <= d) {
            d = std::abs(bottomEdge - p.y());
            result = QPoint(0, 1);
        }
        if (std::abs(rightEdge - p.x()) < d)
            result = QPoint(1, 0);
        return result;
    }

private:
    static int dot(const QPoint &a, const QPoint &b) { return a.x() * b.x() + a.y() * b.y(); }
    static int out(const QPoint &normal, const QPoint &p) { return std::abs(dot(normal, p + 10 * normal)); }

    static std::vector<int> positions(const QPoint &s, const QPoint &e, const QPoint &startNormal,
                                      const QPoint &endNormal, bool startHorizontal)
    {
        const QPoint average((s.x() + e.x()) / 2, (s.y() + e.y()) / 2);
        const int startSays = dot(startNormal, e - s);
        const int endSays = dot(endNormal, e - s);
        std::vector<int> result;
        result.push_back(startHorizontal ? s.y() : s.x());
        bool h = !startHorizontal;
        const int facing = dot(startNormal, endNormal);
        if (facing == 0) {
            if (startSays < 0 || endSays > 0) {
                if (startSays < 0)
                    result.push_back(out(startNormal, s));
                else
                    result.push_back(h ? average.y() : average.x());
                if (endSays <= 0)
                    result.push_back(startHorizontal ? average.y() : average.x());
                else
                    result.push_back(out(endNormal, e));
            }
        } else if (facing < 0) {
            if (startSays < 0) {
                result.push_back(out(startNormal, s));
                h = startHorizontal;
            }
            result.push_back(h ? average.y() : average.x());
            if (startSays < 0)
                result.push_back(out(endNormal, e));
            else
                h = !h;
        } else {
            if (startSays < 0)
                result.push_back(out(endNormal, e));
            else
                result.push_back(out(startNormal, s));
            h = startHorizontal;
        }
        result.push_back(h ? e.y() : e.x());
        return result;
    }

    QList<QPoint> process(const void *connection, const QPoint &s, const QPoint &e, const std::vector<int> &list,
                          bool horizontal)
    {
        forget(connection);
        const int n = int(list.size());
        std::vector<int> pos(list.size() + 2);
        pos[0] = horizontal ? s.x() : s.y();
        std::copy(list.begin(), list.end(), pos.begin() + 1);
        pos.back() = horizontal == (n % 2 != 0) ? e.x() : e.y();
        QList<QPoint> points {s};
        for (int i = 2; i < n + 1; ++i) {
            horizontal = !horizontal;
            int &current = pos[size_t(i)];
            const int previous = pos[size_t(i - 1)];
            if (i != n && horizontal)
                current = rowNear(connection, current, pos[size_t(i - 2)], pos[size_t(i + 2)]);
            else if (i != n)
                current = columnNear(connection, current, pos[size_t(i - 2)], pos[size_t(i + 2)]);
            points.append(horizontal ? QPoint(previous, current) : QPoint(current, previous));
        }
        if (points.last() != e)
            points.append(e);
        return points;
    }

    int rowNear(const void *connection, int r, int a, int b)
    {
        bool reserve = false;
        const int row = lineNear(m_rows, r, a, b, reserve);
        if (reserve) {
            m_rows.insert(row);
            m_reservedRows[connection].push_back(row);
        }
        return row;
    }

    int columnNear(const void *connection, int r, int a, int b)
    {
        bool reserve = false;
        const int column = lineNear(m_columns, r, a, b, reserve);
        if (reserve) {
            m_columns.insert(column);
            m_reservedColumns[connection].push_back(column);
        }
        return column;
    }

    static int lineNear(const std::set<int> &used, int r, int a, int b, bool &reserve)
    {
        int lower = std::min(a, b);
        int upper = std::max(a, b);
        if (upper < r) {
            lower = upper;
            upper = 2 * r - lower;
        } else if (lower > r) {
            upper = lower;
            lower = 2 * r - upper;
        }
        const int proposed = r % 2 == 1 ? r - 1 : r;
        if (proposed <= 0)
            return proposed;
        int sign = -1;
        int k = 0;
        while (k < proposed) {
            const int c = proposed + sign * k;
            if (used.count(c) == 0) {
                reserve = true;
                return c;
            }
            if (c <= lower)
                return c + 2;
            if (c >= upper)
                return c - 2;
            if (sign == -1)
                k += 2;
            sign = -sign;
        }
        return proposed;
    }

    std::set<int> m_rows;
    std::set<int> m_columns;
    std::map<const void *, std::vector<int>> m_reservedRows;
    std::map<const void *, std::vector<int>> m_reservedColumns;
};
