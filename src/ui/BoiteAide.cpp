#include "ui/BoiteAide.h"

#include "ui_BoiteAide.h"

#include <QStyle>

namespace ui {

BoiteAide::BoiteAide(QWidget* parent) : QFrame(parent), ui(std::make_unique<Ui::BoiteAide>()) {
    ui->setupUi(this);
    const int cote = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    ui->Image2->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this).pixmap(cote, cote));
    connect(ui->BTMsgSuivant, &QPushButton::clicked, this, &BoiteAide::BTMsgSuivant_Click);
    Montrer();
}

BoiteAide::~BoiteAide() = default;

void BoiteAide::FixerMessageAide(const QString& message) {
    texte = message;
    messages = message.split(QLatin1Char('|'));
    rang = 0;
    Montrer();
}

void BoiteAide::BTMsgSuivant_Click() {
    if (messages.isEmpty()) return;
    // Après le dernier conseil, on revient au premier.
    rang = (rang + 1) % messages.size();
    Montrer();
}

void BoiteAide::Montrer() {
    ui->LBAide->setText(messages.isEmpty() ? QString() : messages.at(rang));
    ui->BTMsgSuivant->setVisible(messages.size() > 1);
}

} // namespace ui
