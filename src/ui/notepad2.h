#pragma once

#include <QWidget>

#include <filesystem>
#include <string>
#include <vector>

class QPlainTextEdit;
class QPushButton;

namespace qv {

// The program's one text viewer: a text file or a list in a scrolling box, with print and save.
// Files on disk are Windows-1252; the box holds Unicode.
class Notepad2 : public QWidget
{
    Q_OBJECT

public:
    explicit Notepad2(QWidget* parent = nullptr);

    // False when the file cannot be read; the box is then empty.
    bool load_file(const std::filesystem::path& file);
    void set_lines(const std::vector<std::string>& lines);
    QString text() const;
    // Writes the box in Windows-1252 with the line ends the loaded file had.
    bool save_to(const std::filesystem::path& file) const;

public slots:
    void print();
    void save();

private:
    QPlainTextEdit* m_text;
    QPushButton* m_print;
    QPushButton* m_save;
    std::filesystem::path m_file;
    std::string m_line_end = "\r\n";
};

} // namespace qv
