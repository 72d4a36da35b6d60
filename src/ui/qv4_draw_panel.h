#pragma once

#include "documents/makedrawpic_new.h"

#include <QImage>
#include <QWidget>

#include <cstdint>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace qv {

class Session;

// The draw of an event of the analysis store's single tables, drawn as the tournament's draws are, with its
// copies and "split128", printed or saved as images.
class Qv4DrawPanel : public QWidget
{
    Q_OBJECT

public:
    // no_image_text: what saving says with no picture on show.
    Qv4DrawPanel(Session& session, std::string no_image_text, QWidget* parent = nullptr);

    void show_event(std::int64_t eid);
    void clear();
    void print();
    void save_images();

    const QImage& picture() const { return m_picture; }
    QLineEdit* copies() const { return m_copies; }
    QCheckBox* split128() const { return m_split; }

private:
    Session& m_session;
    std::string m_no_image_text;
    QLabel* m_view;
    QLineEdit* m_copies;
    QCheckBox* m_split;
    QImage m_picture;
    std::vector<DrawPicture> m_pictures;
};

} // namespace qv
