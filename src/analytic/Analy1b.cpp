#include "analytic/Analy1b.h"

#include "analytic/DonneesAnalytique.h"
#include "session/Session.h"
#include "ui/Boite.h"

#include "ui_Analy1b.h"

namespace ecran {

namespace {

void Attention(const QString& texte) {
    ui::Boite(texte, QStringLiteral("Attention"), ui::Icone::Exclamation);
}

} // namespace

Analy1b::Analy1b(QWidget* parent, bool creation, int numero, const QString& nom)
    : ui::EcranModal(parent), ui(std::make_unique<Ui::Analy1b>()), creation(creation) {
    FixerContexteAide(18);
    ui->setupUi(this);
    session().ModeCreSociete = creation ? 1 : 2;
    if (!creation) {
        ui->Text1->setText(QStringLiteral("%1").arg(numero, 2, 10, QLatin1Char('0')));
        ui->Text1->setReadOnly(true);
        ui->Text1->setEnabled(false);
        ui->Text2->setText(nom);
    }
    connect(ui->Command1, &QPushButton::clicked, this, &Analy1b::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Analy1b::Command2_Click);
}

Analy1b::~Analy1b() = default;

void Analy1b::Command1_Click() {
    bool nombre = false;
    const int numero = ui->Text1->text().trimmed().toInt(&nombre);
    if (creation && (!nombre || numero < 1 || numero > 98)) {
        Attention(
            QStringLiteral("Le numéro de section est incorrect.\nIl doit être compris entre 1 "
                           "et 98."));
        ui->Text1->setFocus();
        return;
    }
    const QString nom = ui->Text2->text().trimmed();
    if (nom.isEmpty()) {
        Attention(QStringLiteral("La saisie du libellé est obligatoire."));
        ui->Text2->setFocus();
        return;
    }
    if (creation && analytique::SectionExiste(CleCourante(), numero)) {
        Attention(QStringLiteral("Cette section analytique existe déjà !"));
        ui->Text1->setFocus();
        return;
    }
    NumSectionChoisie = QString::number(numero);
    NomSectionChoisie = nom;
    Retour();
}

void Analy1b::Command2_Click() {
    NumSectionChoisie.clear();
    NomSectionChoisie.clear();
    Retour();
}

} // namespace ecran
