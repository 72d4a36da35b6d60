#pragma once

#include "core/clear_data.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QPushButton;

namespace qv {

class Session;

// "clear data": five remembered ticks and one button.
class ClearDataDialog : public QDialog
{
    Q_OBJECT

public:
    ClearDataDialog(Session& session, QWidget* parent = nullptr);

    QCheckBox* box(int index) const { return m_boxes.at(static_cast<std::size_t>(index)); }
    ClearDataTicks ticks() const;

public slots:
    void clear();

private:
    void remember(int index, bool checked);

    Session& m_session;
    std::array<QCheckBox*, 5> m_boxes {};
    QPushButton* m_clear;
    // Set while the boxes take their stored ticks, so that doing so writes nothing back.
    bool m_loading = false;
};

} // namespace qv
