#include "ui/colours_tab.h"

#include "core/app_options.h"
#include "core/session.h"
#include "ui/colors.h"
#include "ui/options_tab.h"
#include "ui/qt_text.h"

#include <QColorDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

ColoursTab::ColoursTab(Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
{
    auto* grid = new QGridLayout;
    int row = 0;
    for (const auto& option : color_options()) {
        const std::string key(option.key);
        const std::string fallback(option.default_value);
        auto* swatch = new QPushButton(this);
        swatch->setFixedSize(60, 22);
        auto* defaults = new QPushButton(QStringLiteral("set defaults"), this);
        grid->addWidget(new QLabel(qs(option.caption), this), row, 0);
        grid->addWidget(swatch, row, 1);
        grid->addWidget(defaults, row, 2);
        ++row;
        m_swatches[key] = swatch;
        m_defaults[key] = defaults;
        connect(swatch, &QPushButton::clicked, this, [this, key] {
            const QColor chosen = QColorDialog::getColor(
                color_from_setting(m_session.settings().text(key)), this, QStringLiteral("colour"));
            if (chosen.isValid())
                store(key, chosen);
        });
        connect(defaults, &QPushButton::clicked, this, [this, key, fallback] {
            m_session.settings().set_disk_var(key, fallback);
            show_color(key);
            repaint_area_markers(m_session);
        });
        show_color(key);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch();
}

void ColoursTab::store(const std::string& key, const QColor& color)
{
    // Stored as Windows numbers them: red in the low byte, blue in the high one.
    const long number = color.red() + 256L * color.green() + 65536L * color.blue();
    m_session.settings().set_disk_var(key, std::to_string(number));
    show_color(key);
    repaint_area_markers(m_session);
}

void ColoursTab::show_color(const std::string& key)
{
    const QColor color = color_from_setting(m_session.settings().text(key));
    m_swatches.at(key)->setStyleSheet(QStringLiteral("background-color: %1").arg(color.name()));
}

} // namespace qv
