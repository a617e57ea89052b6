// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/listview/listrow.h"
#include "ui/listview/rowoffsets.h"
#include "ui/listview/scrollanimation.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QPointer>
#include <QtQml/QQmlComponent>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

#include <deque>
#include <memory>
#include <vector>

namespace tolvane {

/// The visible rows of a list of any length, with rows of any height, over a Flickable that
/// provides the scroll position.
///
/// Visible rows never jump: one row is the anchor, and the others are placed relative to it. The
/// anchor changes with the visible rows. The start and the end of the list are computed from it.
/// They are estimates until the rows there have been visible, so positions have no fixed origin.
///
/// The list opens at its end. If it is at the end, it stays there while rows change their heights.
/// Inserted and removed rows do not scroll it: call scrollToEnd() for that.
class TOLVANE_VIEWS_AUTOTEST_EXPORT AnchoredList : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QAbstractItemModel *model READ model WRITE setModel NOTIFY modelChanged)
    /// Has a property for each role of the model. It gets the width of the list; its implicit
    /// height is the height of the row. Its `isCurrent` is true while its row is the current one.
    Q_PROPERTY(QQmlComponent *delegate READ delegate WRITE setDelegate NOTIFY delegateChanged)
    /// A role that is equal for rows whose items have the same structure: the item of a row that
    /// has become invisible is reused for the next row of its kind, which is much cheaper than to
    /// create one. Without this role no item is reused.
    Q_PROPERTY(QString kindRole READ kindRole WRITE setKindRole NOTIFY kindRoleChanged)
    /// A role with the microseconds that an item for a row takes to be created. Rows that are too
    /// expensive for one frame appear in the next ones, the nearest to the anchor first. Without
    /// this role all rows appear at once.
    Q_PROPERTY(QString costRole MEMBER m_costRole NOTIFY costRoleChanged)
    /// Components of further rows after those of the model.
    Q_PROPERTY(QVariantList trailing READ trailing WRITE setTrailing NOTIFY trailingChanged)
    Q_PROPERTY(double topMargin MEMBER m_topMargin WRITE setTopMargin NOTIFY marginsChanged)
    Q_PROPERTY(
        double bottomMargin MEMBER m_bottomMargin WRITE setBottomMargin NOTIFY marginsChanged)
    /// Whether the list is being dragged or flicked.
    Q_PROPERTY(bool isMoving MEMBER m_isMoving WRITE setMoving NOTIFY isMovingChanged)
    /// The position at the top of the viewport.
    Q_PROPERTY(double contentY READ contentY WRITE setContentY NOTIFY contentYChanged)
    /// The minimum and the maximum of `contentY`.
    Q_PROPERTY(double start READ start NOTIFY endsChanged)
    Q_PROPERTY(double end READ end NOTIFY endsChanged)
    /// A row of the model, or -1.
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)
    Q_PROPERTY(QQuickItem *currentItem READ currentItem NOTIFY currentIndexChanged)
    /// The parent of the rows' items.
    Q_PROPERTY(QQuickItem *content READ content CONSTANT)

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
    QQuickItem *content() const { return m_content; }

    /// @param duration in milliseconds; 0 scrolls immediately
    Q_INVOKABLE void scrollToEnd(int duration);
    Q_INVOKABLE void scrollToStart(int duration);
    Q_INVOKABLE void scrollBy(double distance, int duration);
    /// Makes the next row (1) or the one before (-1) the current one and scrolls to it. If the
    /// current row extends beyond the viewport, scrolls within that row first.
    Q_INVOKABLE void step(int direction);
    /// Scrolls to the current row; without one, makes the last visible row the current one.
    Q_INVOKABLE void showCurrentRow();
    /// The item of a row, trailing rows included; null while the row is not visible.
    Q_INVOKABLE QQuickItem *itemAt(int row) const;
    /// The row of an item; -1 for an item that does not belong to a row.
    Q_INVOKABLE int indexOf(const QQuickItem *item) const;
    /// Makes a screen reader announce a text. False before Qt 6.8, which has no event for that.
    Q_INVOKABLE bool announce(const QString &text);

Q_SIGNALS:
    void modelChanged();
    void delegateChanged();
    void kindRoleChanged();
    void costRoleChanged();
    void trailingChanged();
    void marginsChanged();
    void isMovingChanged();
    void contentYChanged();
    void endsChanged();
    void currentIndexChanged();
    /// The Flickable has to scroll to this position.
    void scrollRequested(double contentY);

protected:
    void componentComplete() override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void updatePolish() override;

private:
    using Rows = std::deque<std::unique_ptr<ListRow>>;

    // Changes of the model.
    int modelCount() const { return m_model ? m_model->rowCount() : 0; }
    void resetRows();
    void insertRows(int row, int count);
    void removeRows(int row, int count);
    void updateRows(int first, int last, const QList<int> &roles);
    void rememberPositions();

    // Positions of rows.
    double positionOf(int row) const;
    double minContentY() const;
    double maxContentY() const;
    void chooseAnchor(double top);
    void fillViewport(double top, double below);
    void recycleRowsOutside(int first, int last);
    double nextContentY(double contentY) const;
    double targetContentY() const;
    double finalContentY() const;
    void beginScroll();
    void layoutRows();
    void animateRowChanges();
    void placeRows(double contentY);
    void publishLayout(double contentY);

    // Items of rows.
    bool provideRow(int row);
    std::unique_ptr<ListRow> &rowSlot(int row);
    ListRow *rowAt(int row) const;
    std::unique_ptr<ListRow> createRow(int row);
    ItemPointer createItem(int row);
    void reuseItem(QQuickItem &item, int row);
    QVariant kindOf(int row) const;
    QVariant valueOf(const QString &roleName, int row) const;
    ItemPointer takePooledItem(const QVariant &kind);
    void recycleRow(std::unique_ptr<ListRow> dropped);
    static void setProperties(QQuickItem &item, const QVariantMap &values);
    QVariantMap roleValues(int row, const QList<int> &roles = {}) const;
    void updateRowHeight(const QQuickItem *item);

    QPointer<QAbstractItemModel> m_model;
    QPointer<QQmlComponent> m_delegate;
    QString m_kindRole;
    QString m_costRole;
    QList<QPointer<QQmlComponent>> m_trailing;
    double m_topMargin = 0;
    double m_bottomMargin = 0;
    bool m_isMoving = false;
    int m_currentIndex = -1;

    /// Moves when the list scrolls. The rows do not move in it, so that the renderer keeps their
    /// vertices and draws many rows at once.
    QQuickItem *const m_content;
    /// The position of the top of `m_content`: near the viewport, as vertices are floats.
    double m_contentTop = 0;
    RowOffsets m_offsets;
    /// For each row, the number of the first layout after its insertion; -1 for initial rows.
    std::vector<int> m_insertionLayouts;
    int m_layoutCount = 0;
    /// The row whose position is fixed; the number of rows means the end of the last row.
    int m_anchorRow = 0;
    double m_anchorPosition = 0;

    /// The rows that have items, in order, without gaps after a layout.
    Rows m_rows;
    int m_firstRow = 0;
    struct PooledItem
    {
        QVariant kind;
        ItemPointer item;
    };
    /// Items of rows that became invisible, for rows that become visible next.
    std::deque<PooledItem> m_pooledItems;
    struct LeavingRow
    {
        std::unique_ptr<ListRow> row;
        double position;
    };
    std::vector<LeavingRow> m_leaving;

    double m_contentY = 0;
    double m_flickableY = 0;
    double m_start = 0;
    double m_end = 0;
    bool m_isAtEnd = true;
    bool m_isLayingOut = false;
    /// The cost of the items that were created in this frame.
    int m_spentCost = 0;
    ScrollAnimation m_scrollAnimation;
};

} // namespace tolvane
