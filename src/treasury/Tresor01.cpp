#include "treasury/Tresor01.h"

#include "session/Session.h"
#include "treasury/DonneesTresor.h"
#include "treasury/Tresor02.h"
#include "ui/Boite.h"
#include "ui/Sablier.h"

#include "ui_Tresor01.h"

#include <QCoreApplication>

namespace ecran {

Tresor01::Tresor01(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Tresor01>()) {
    FixerContexteAide(16);
    ui->setupUi(this);
    ui->Gauge1->hide();
    connect(ui->Command1, &QPushButton::clicked, this, &Tresor01::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Tresor01::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Tresor01::Command3_Click);
}

Tresor01::~Tresor01() = default;

void Tresor01::Command1_Click() {
    Lancer(tresor::MenuClients);
}

void Tresor01::Command2_Click() {
    Lancer(tresor::MenuFournisseurs);
}

void Tresor01::Command3_Click() {
    Retour();
}

void Tresor01::Lancer(int menu) {
    MenuTiers = menu;
    if (!Lettrage()) return;
    if (ui::Boite(QStringLiteral("Le lettrage automatique est terminé.\n\nSouhaitez-vous lancer "
                                 "le lettrage manuel ?"),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui)
        return;
    // Le lettrage manuel prend la place de cet écran.
    QWidget* dessous = parentWidget();
    Retour();
    QCoreApplication::processEvents();
    Tresor02 manuel(dessous);
    manuel.exec();
}

bool Tresor01::Lettrage() {
    const QString cle = CleCourante();
    const int nombre = tresor::NombreComptes(cle, MenuTiers);
    if (nombre == 0) {
        ui::Boite(QStringLiteral("Il n'y a aucun compte à lettrer"));
        return false;
    }
    ui::Sablier sablier;
    ui->Gauge1->setRange(0, nombre);
    ui->Gauge1->setValue(0);
    ui->Gauge1->show();
    tresor::LettrerClasse(cle, MenuTiers, session().ExerciceCourant, [this](int n) {
        ui->Gauge1->setValue(n);
        if (n % 20 == 0) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    ui->Gauge1->hide();
    return true;
}

} // namespace ecran
