#pragma once

#include <QImage>
#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QScrollArea;

namespace qv {

class Session;

// load_draw_gif: a draw picture from a GIF file, shown with scroll bars and printed by the default configuration
// of the draw kind the user names in get_gif_details' list.
class LoadDrawGifWindow : public QWidget
{
    Q_OBJECT

public:
    LoadDrawGifWindow(Session& session, QWidget* parent = nullptr);

    QComboBox* kind_list() const { return m_kinds; }
    const QImage& picture() const { return m_picture; }
    void show_picture(const QImage& picture);

public slots:
    void open_gif_draw();
    void print();

private:
    Session& m_session;
    QComboBox* m_kinds;
    QScrollArea* m_scroll;
    QLabel* m_view;
    QPushButton* m_print;
    QImage m_picture;
};

} // namespace qv
