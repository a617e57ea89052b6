// SPDX-License-Identifier: MIT
#pragma once

#include "ui/listview/listrow.h"
#include "ui/listview/rowoffsets.h"
#include "ui/listview/scrollgoal.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QPointer>
#include <QtQml/QQmlComponent>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

#include <deque>
#include <memory>
#include <vector>

namespace tolvane {

/// The rows of a list of any length and heights, as far as they are in sight, over a Flickable that
/// tells how far it has been scrolled.
///
/// What is seen never jumps: one row is the anchor, and all others stand where it puts them. Which
/// row that is changes with what is in sight. Where the list begins and ends follows from it, and
/// is an estimate until those rows have been seen; where an end is in sight, it is exact. That is
/// why the places here, `start` and `end` included, have no fixed origin.
///
/// The list begins at its end. Where it stands at the end it stays there while things change their
/// size; rows that come and go leave it alone, for scrollToEnd() to be called.
class AnchoredList : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QAbstractItemModel *model READ model WRITE setModel NOTIFY modelChanged)
    /// Has a property for each role of the model. It gets the width of the list; its implicit
    /// height is the row's. Its `isCurrent` is true while it is the current one.
    Q_PROPERTY(QQmlComponent *delegate READ delegate WRITE setDelegate NOTIFY delegateChanged)
    /// A role that tells which rows have items built alike: the item of a row that has gone out of
    /// sight is filled anew for the next of its kind, which takes much less than to make one.
    /// Without it no item is used twice.
    Q_PROPERTY(QString kindRole READ kindRole WRITE setKindRole NOTIFY kindRoleChanged)
    /// Components of further rows after those of the model.
    Q_PROPERTY(QVariantList trailing READ trailing WRITE setTrailing NOTIFY trailingChanged)
    Q_PROPERTY(double topMargin MEMBER m_topMargin WRITE setTopMargin NOTIFY marginsChanged)
    Q_PROPERTY(
        double bottomMargin MEMBER m_bottomMargin WRITE setBottomMargin NOTIFY marginsChanged)
    /// Whether somebody moves the list, or it still coasts.
    Q_PROPERTY(bool isMoving MEMBER m_isMoving WRITE setMoving NOTIFY isMovingChanged)
    /// The place at the top of the list's window.
    Q_PROPERTY(double contentY READ contentY WRITE setContentY NOTIFY contentYChanged)
    /// The least and the most that `contentY` may be.
    Q_PROPERTY(double start READ start NOTIFY endsChanged)
    Q_PROPERTY(double end READ end NOTIFY endsChanged)
    /// A row of the model, or -1.
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)
    Q_PROPERTY(QQuickItem *currentItem READ currentItem NOTIFY currentIndexChanged)

public:
    explicit AnchoredList(QQuickItem *parent = nullptr);
    ~AnchoredList() override;

    QAbstractItemModel *model() const { return m_model; }
    void setModel(QAbstractItemModel *model);
    QQmlComponent *delegate() const { return m_delegate; }
    void setDelegate(QQmlComponent *delegate);
    const QString &kindRole() const { return m_kindRole; }
    void setKindRole(const QString &role);
    QVariantList trailing() const;
    void setTrailing(const QVariantList &components);
    void setTopMargin(double margin);
    void setBottomMargin(double margin);
    void setMoving(bool isMoving);
    double contentY() const { return m_contentY; }
    void setContentY(double y);
    double start() const { return m_start; }
    double end() const { return m_end; }
    int currentIndex() const { return m_currentIndex; }
    void setCurrentIndex(int row);
    QQuickItem *currentItem() const { return itemAt(m_currentIndex); }

    /// @param duration in milliseconds; 0 for at once
    Q_INVOKABLE void scrollToEnd(int duration);
    Q_INVOKABLE void scrollToStart(int duration);
    Q_INVOKABLE void scrollBy(double distance, int duration);
    /// Makes the next row (1) or the one before (-1) the current one and shows it. Of a row that
    /// goes beyond the window, it shows more first.
    Q_INVOKABLE void step(int direction);
    /// The item of a row, trailing ones included; null while the row is out of sight.
    Q_INVOKABLE QQuickItem *itemAt(int row) const;
    /// -1 for an item that is none of a row.
    Q_INVOKABLE int indexOf(const QQuickItem *item) const;
    /// Has a screen reader say something.
    Q_INVOKABLE void announce(const QString &text);

Q_SIGNALS:
    void modelChanged();
    void delegateChanged();
    void kindRoleChanged();
    void trailingChanged();
    void marginsChanged();
    void isMovingChanged();
    void contentYChanged();
    void endsChanged();
    void currentIndexChanged();
    /// Whoever scrolls the list has to go there.
    void moveRequested(double contentY);

protected:
    void componentComplete() override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void updatePolish() override;

private:
    using Rows = std::deque<std::unique_ptr<ListRow>>;

    // What becomes of the model's changes.
    int modelCount() const { return m_model ? m_model->rowCount() : 0; }
    void restart();
    void insertRows(int row, int count);
    void removeRows(int row, int count);
    void updateRows(int first, int last, const QList<int> &roles);
    void notePlaces();

    // Where rows are.
    double placeOf(int row) const;
    double firstPlace() const;
    double lastPlace() const;
    void anchorAt(double top);
    void fill(double top, double below);
    void dropOutside(int first, int last);
    double wantedPlace(double place) const;
    double goalPlace() const;
    double restingPlace() const;
    void beginScroll();
    void settle();
    void animateArrivals();
    void report(double place);

    // Their items.
    std::unique_ptr<ListRow> &slot(int row);
    ListRow *rowAt(int row) const;
    std::unique_ptr<ListRow> make(int row);
    ItemPointer created(int row);
    void fillAnew(QQuickItem &item, int row);
    QVariant kindOf(int row) const;
    ItemPointer takeSpare(const QVariant &kind);
    void drop(std::unique_ptr<ListRow> dropped);
    static void setProperties(QQuickItem &item, const QVariantMap &values);
    QVariantMap rolesOf(int row, const QList<int> &roles = {}) const;
    void measure(const QQuickItem *item);

    QPointer<QAbstractItemModel> m_model;
    QPointer<QQmlComponent> m_delegate;
    QString m_kindRole;
    QList<QPointer<QQmlComponent>> m_trailing;
    double m_topMargin = 0;
    double m_bottomMargin = 0;
    bool m_isMoving = false;
    int m_currentIndex = -1;

    RowOffsets m_offsets;
    /// For each row, when it came: the number of the layout that showed it first.
    std::vector<int> m_arrivals;
    int m_layout = 0;
    /// The row that stays where it is; the number of rows for the end of the last.
    int m_anchor = 0;
    double m_anchorPlace = 0;

    /// Those that are there, in order, without gaps once they have been settled.
    Rows m_rows;
    int m_firstRow = 0;
    struct SpareItem
    {
        QVariant kind;
        ItemPointer item;
    };
    /// Of rows that went out of sight, for those that come into sight next.
    std::deque<SpareItem> m_spareItems;
    struct LeavingRow
    {
        std::unique_ptr<ListRow> row;
        double place;
    };
    std::vector<LeavingRow> m_leaving;

    double m_contentY = 0;
    double m_flickableY = 0;
    double m_start = 0;
    double m_end = 0;
    bool m_isAtEnd = true;
    bool m_isSettling = false;
    ScrollGoal m_goal;
};

} // namespace tolvane
