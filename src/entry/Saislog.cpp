#include "entry/Saislog.h"

#include "base/Texte.h"
#include "entry/DonneesSaisie.h"
#include "entry/LigneMenu.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui_Saislog.h"

#include "entry/ChoixCpt.h"

namespace ecran {

Saislog::Saislog(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Saislog>()) {
    FixerContexteAide(9);
    ui->setupUi(this);
    connect(ui->List1, &QListWidget::itemClicked, this, &Saislog::List1_Click);
    connect(ui->List2, &QListWidget::itemClicked, this, &Saislog::List2_Click);
    connect(ui->List2, &QListWidget::itemDoubleClicked, this, &Saislog::List2_DblClick);
    connect(ui->Command1, &QPushButton::clicked, this, &Saislog::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Saislog::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Saislog::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Saislog::Command4_Click);
    Form_Load();
}

Saislog::~Saislog() = default;

void Saislog::Form_Load() {
    // L'écran cache Choisais par la pile des écrans modaux quand il se montre.
    ui->List2->clear();
}

void Saislog::List1_Click() {
    session().CleMenuSaisie = QString::number(ui->List1->currentRow() + 1);
    ui->List2->clear();
    // Les lignes de la famille, sans trou depuis 1 : une ligne après un trou n'est jamais offerte.
    table::Tableau t;
    for (int n = 1;; ++n) {
        if (!LireLigneMenu(session().CleMenuSaisie + QString::number(n) + QLatin1Char('1'), t))
            break;
        ui->List2->addItem(t.tLibMenuprinc);
    }
}

void Saislog::List2_Click() {
    session().CleMenuSaisie =
        session().CleMenuSaisie.left(1) + QString::number(ui->List2->currentRow() + 1);
}

void Saislog::List2_DblClick() {
    List2_Click();
    Command1_Click();
}

void Saislog::Command1_Click() {
    saisie::Vider();
    if (session().CleMenuSaisie.size() != 2) {
        ui::Boite(QStringLiteral("N'oubliez pas de sélectionner un menu à droite."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return;
    }
    table::Constante c;
    LireConstante(CleCourante(), c);
    const QString dateFin = DateVersEcran(c.DateFin);
    if (session().CleMenuSaisie == QLatin1String("57") && session().DateSaisieCourante != dateFin) {
        ui::Boite(QStringLiteral("Pour passer l'écriture du résultat il faut que la date de "
                                 "saisie soit identique à la date de fin d'exercice."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return;
    }
    setCursor(Qt::WaitCursor);
    ChoixCpt e(this);
    e.exec();
    unsetCursor();
}

void Saislog::Command2_Click() {
    Retour();
}

void Saislog::Command3_Click() {
    // Saislog seul est déchargé.
    QuitterNiveaux(1);
}

void Saislog::Command4_Click() {
    MontrerAide();
}

} // namespace ecran
