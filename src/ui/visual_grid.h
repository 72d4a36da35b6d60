#pragma once

#include "scheduling/assistant_lists.h"

#include <QWidget>

namespace qv {

// The visual grid: a column per court, the day's time running down, and a little box per match at its court and
// time, labelled by its sid and coloured by its state.
class VisualGridWidget : public QWidget
{
    Q_OBJECT

public:
    explicit VisualGridWidget(QWidget* parent = nullptr);

    void set_grid(VisualGrid grid);
    const VisualGrid& grid() const { return m_grid; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int x_of(std::int64_t cid) const;
    int y_of(int minutes) const;

    VisualGrid m_grid;
};

} // namespace qv
