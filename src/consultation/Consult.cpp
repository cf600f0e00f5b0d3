#include "consultation/Consult.h"

#include "consultation/Balance.h"
#include "consultation/BilGraph.h"
#include "consultation/Bilan.h"
#include "consultation/ConsCpt.h"
#include "consultation/Journal.h"
#include "consultation/Resultat.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui_Consult.h"

namespace ecran {

namespace {

template <class Ecran> void Ouvrir(QWidget* parent) {
    Ecran e(parent);
    e.exec();
}

} // namespace

Consult::Consult(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Consult>()) {
    FixerContexteAide(14);
    ui->setupUi(this);
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false);
    connect(ui->Command1, &QPushButton::clicked, this, &Consult::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Consult::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Consult::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Consult::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &Consult::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &Consult::Command6_Click);
    connect(ui->Command7, &QPushButton::clicked, this, &Consult::Command7_Click);
}

Consult::~Consult() = default;

void Consult::Command1_Click() {
    Ouvrir<Journal>(this);
}
void Consult::Command2_Click() {
    Ouvrir<Balance>(this);
}
void Consult::Command3_Click() {
    Quitter();
}
void Consult::Command4_Click() {
    Ouvrir<Resultat>(this);
}

void Consult::Command5_Click() {
    table::Constante k;
    LireConstante(CleCourante(), k);
    // Un bilan dont l'ouverture n'est pas équilibrée ne peut pas être juste.
    if (k.SDE1 != k.SDR1) {
        ui::Boite(k.OuvertureClos
                      ? QStringLiteral(
                            "Vous ne pouvez pas consulter le bilan car vous n'avez pas encore "
                            "effectué\nle transfert définitif des soldes de l'exercice précédent "
                            "sur l'exercice en cours.\n\nDans le choix Plan, vous pouvez "
                            "consulter le bilan d'ouverture dont le déséquilibre\nest égal au "
                            "résultat provisoire de l'exercice précédent.")
                      : QStringLiteral("Votre bilan d'ouverture n'est pas équilibré.\n\nVous ne "
                                       "pouvez pas afficher le bilan."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return;
    }
    Ouvrir<Bilan>(this);
}

void Consult::Command6_Click() {
    Ouvrir<ConsCpt>(this);
}
void Consult::Command7_Click() {
    Ouvrir<BilGraph>(this);
}

} // namespace ecran
