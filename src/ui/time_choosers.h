#pragma once

#include "scheduling/time_choice.h"

#include <QWidget>

class QComboBox;

namespace qv {

// The three choosers of a time: nb/at, hour and minute, with their fixed entries.
class TimeChoosers : public QWidget
{
    Q_OBJECT

public:
    explicit TimeChoosers(QWidget* parent = nullptr);

    TimeChoice choice() const;
    // Selects the entries of the choice.
    void set_choice(const TimeChoice& choice);
    // "grab match time": a chooser without a matching entry is left alone.
    void set_grabbed(const GrabbedTime& grabbed);
    // "clear": all three empty.
    void clear();

    QComboBox* nbat() const { return m_nbat; }
    QComboBox* hour() const { return m_hour; }
    QComboBox* minute() const { return m_minute; }

private:
    QComboBox* m_nbat;
    QComboBox* m_hour;
    QComboBox* m_minute;
};

} // namespace qv
