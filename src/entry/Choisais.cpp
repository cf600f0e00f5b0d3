#include "entry/Choisais.h"

#include "entry/DonneesSaisie.h"
#include "entry/Saislog.h"
#include "ui/Aide.h"
#include "ui_Choisais.h"

#include "entry/Annul.h"
#include "entry/ModifLib.h"
#include "entry/SaisDC.h"

namespace ecran {

Choisais::Choisais(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Choisais>()) {
    FixerContexteAide(7);
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, &Choisais::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Choisais::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Choisais::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Choisais::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &Choisais::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &Choisais::Command6_Click);
    Form_Load();
}

Choisais::~Choisais() = default;

void Choisais::Form_Load() {
    // L'écriture en cours d'une session précédente ne survit jamais.
    saisie::Vider();
}

void Choisais::Command1_Click() {
    Saislog e(this);
    e.exec();
}

void Choisais::Command2_Click() {
    SaisDC e(this);
    e.exec();
}

void Choisais::Command3_Click() {
    Quitter();
}

void Choisais::Command4_Click() {
    Annul e(this);
    e.exec();
}

void Choisais::Command5_Click() {
    MontrerAide();
}

void Choisais::Command6_Click() {
    ModifLib e(this);
    e.exec();
}

} // namespace ecran
