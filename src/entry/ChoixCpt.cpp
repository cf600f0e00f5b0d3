#include "entry/ChoixCpt.h"

#include "chart/Plan2.h"
#include "entry/ControlesSaisie.h"
#include "entry/DonneesSaisie.h"
#include "entry/LigneMenu.h"
#include "entry/SaisQuad.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui_ChoixCpt.h"

#include <QShowEvent>
#include <algorithm>

namespace ecran {

namespace {

// Menus dont la case "Avec rappel des comptes" se montre.
bool MenuAvecRappel(const QString& cle) {
    static const QStringList menus = {"11", "21", "31", "32", "33", "34",
                                      "35", "36", "37", "43", "56"};
    return menus.contains(cle);
}

} // namespace

ChoixCpt::ChoixCpt(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::ChoixCpt>()) {
    FixerContexteAide(10);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes(
        {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
    ui->Tree2->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Libellé")});
    ui->Tree1->setColumnWidth(0, 90);
    ui->Tree1->setColumnWidth(1, 260);
    ui->Tree2->setColumnWidth(0, 90);
    ui->Tree2->setColumnWidth(1, 300);
    connect(ui->Option1, &QRadioButton::clicked, this, &ChoixCpt::Option1_Click);
    connect(ui->Option2, &QRadioButton::clicked, this, &ChoixCpt::Option2_Click);
    connect(ui->Option3, &QRadioButton::clicked, this, &ChoixCpt::Option3_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &ChoixCpt::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &ChoixCpt::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &ChoixCpt::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &ChoixCpt::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &ChoixCpt::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &ChoixCpt::Command6_Click);
    connect(ui->Command7, &QPushButton::clicked, this, &ChoixCpt::Command7_Click);
    connect(ui->Command8, &QPushButton::clicked, this, &ChoixCpt::Command8_Click);
    connect(ui->Tree1, &ui::Grille::ligneDoubleCliquee, this, &ChoixCpt::Command4_Click);
    connect(ui->Tree2, &ui::Grille::ligneDoubleCliquee, this, &ChoixCpt::Command6_Click);
    connect(ui->Tree1, &ui::Grille::touche, this, &ChoixCpt::Tree1_KeyDown);
    Form_Load();
}

ChoixCpt::~ChoixCpt() = default;

void ChoixCpt::Form_Load() {
    ui->BCrappel->setVisible(MenuAvecRappel(session().CleMenuSaisie));
    if (parentWidget()) parentWidget()->unsetCursor();
    NumLigneSaisie = 0;
    table::Tableau t;
    const bool trouve = LireLigneMenu(session().CleMenuSaisie + QLatin1Char('1'), t);
    session().LigneMenuSaisie = t.tLibMenuprinc;
    if (trouve) ui->Label3->setText(t.tLibMenuprinc);
    ui->Option1->setText(t.tMessage);
    QRadioButton* options[] = {ui->Option2, ui->Option3};
    for (int slot = 2; slot <= 3; ++slot) {
        QRadioButton* o = options[slot - 2];
        if (LireLigneMenu(session().CleMenuSaisie + QString::number(slot), t)) {
            o->setText(t.tMessage);
        } else {
            o->setEnabled(false);
            o->setText(QStringLiteral("<Inutilisé>"));
        }
    }
    ChoisirOption(1);
}

void ChoixCpt::showEvent(QShowEvent* evenement) {
    EcranModal::showEvent(evenement);
    // Chaque retour (saisie des montants, plan, détail d'un compte) prépare la suite.
    if (!evenement->spontaneous()) Form_Activate();
}

void ChoixCpt::Form_Activate() {
    if (RetourDetail) {
        RetourDetail = false;
        ui->Tree1->setFocus();
        return;
    }
    if (!session().EcriturePassee) {
        ChoisirOption(1);
        return;
    }
    // L'écriture vient d'être passée : l'option de la suivante dépend de la famille.
    const QString cle = session().CleMenuSaisie;
    const QChar famille = cle.isEmpty() ? QChar() : cle.at(0);
    if (famille == u'1' || famille == u'2')
        ChoisirOption(cle.mid(1, 1) == QLatin1String("1") ? 3 : 1);
    else if (famille == u'3')
        ChoisirOption(2);
    else
        ChoisirOption(1);
    if (!ui->BCrappel->isChecked()) {
        saisie::Vider();
        ui->Tree2->Vider();
        ChoisirOption(1);
        return;
    }
    saisie::GarderRappelsDesCases();
    RemplirTree2();
    // La suite se fait au clavier : la liste des comptes de la case prend la main.
    ui->Tree1->setFocus();
    if (ui->Tree1->NombreLignes() > 0) ui->Tree1->FixerLigneCourante(0);
}

void ChoixCpt::ChoisirOption(int slot) {
    QRadioButton* options[] = {ui->Option1, ui->Option2, ui->Option3};
    options[slot - 1]->setChecked(true);
    RemplirCompteLog(QString::number(slot));
}

int ChoixCpt::SlotCoche() const {
    if (ui->Option3->isChecked()) return 3;
    if (ui->Option2->isChecked()) return 2;
    return 1;
}

void ChoixCpt::Option1_Click() {
    RemplirCompteLog(QStringLiteral("1"));
}

void ChoixCpt::Option2_Click() {
    RemplirCompteLog(QStringLiteral("2"));
}

void ChoixCpt::Option3_Click() {
    RemplirCompteLog(QStringLiteral("3"));
}

void ChoixCpt::RemplirCompteLog(const QString& slot) {
    table::Tableau t;
    LireLigneMenu(session().CleMenuSaisie + slot, t);
    // Tout le plan (999), sauf les collectifs et les comptes de résultat ; sinon les classes
    // de la case, et une case sans classe ne propose rien.
    AfficherComptesOfferts(ui->Tree1, t.tTaille == 1 && t.tMenuAutorise.left(3).toInt() == 999
                                          ? saisie::ComptesSauf({"400", "410", "699", "799"})
                                          : saisie::ComptesDesClasses(saisie::ClassesDeLaCase(t)));
    ui->Tree1->Trier(0, Qt::AscendingOrder);
}

void ChoixCpt::RemplirTree2() {
    ui->Tree2->Vider();
    // Les lignes par case, puis dans l'ordre où elles ont été choisies.
    std::vector<saisie::Ligne> lignes = saisie::LireLignes();
    std::stable_sort(lignes.begin(), lignes.end(), [](const auto& a, const auto& b) {
        return a.s.wMenuLigne.trimmed() < b.s.wMenuLigne.trimmed();
    });
    for (const saisie::Ligne& l : lignes)
        ui->Tree2->AjouterLigne({l.s.wNumCpt, l.s.wLibCpt.trimmed()});
}

void ChoixCpt::Command4_Click() {
    const QString slot = QString::number(SlotCoche());
    const int ligne = ui->Tree1->LigneCourante();
    if (ligne < 0) return;
    const QString numero = ui->Tree1->Texte(ligne, 0).left(8).trimmed();
    if (CompteDejaPresent(numero)) return;
    table::Compte c;
    // Un compte retiré du plan entre-temps vaut une absence de choix.
    if (!LireCompte(CleCourante(), numero, c)) return;
    table::Tableau t;
    LireLigneMenu(session().CleMenuSaisie + slot, t);
    table::Saisie r = saisie::LignePreparee(c, t, ++NumLigneSaisie, session().CleMenuSaisie + slot);
    saisie::AjouterLigne(r);
    RemplirTree2();
}

void ChoixCpt::Command6_Click() {
    const int ligne = ui->Tree2->LigneCourante();
    if (ligne < 0) return;
    const QString numero = ui->Tree2->Texte(ligne, 0).left(8).trimmed();
    saisie::RetirerLigneCompte(numero);
    RemplirTree2();
}

void ChoixCpt::Tree1_KeyDown(int cle) {
    if (cle == Qt::Key_Return || cle == Qt::Key_Enter) Command4_Click();
}

void ChoixCpt::Command3_Click() {
    if (saisie::NombreLignes() < 2) {
        ui::Boite(QStringLiteral("Il faut au moins deux comptes pour passer une écriture."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
    SaisQuad e(this);
    e.exec();
}

void ChoixCpt::Command1_Click() {
    Plan2 e(this);
    e.Command5_Click();
    e.exec();
    RemplirCompteLog(QString::number(SlotCoche()));
}

void ChoixCpt::Command8_Click() {
    // Posé avant l'ouverture : le retour du détail réactive l'écran pendant l'exec.
    OuvrirDetailCompte(this, CompteSelectionne(ui->Tree1), [this] { RetourDetail = true; });
}

void ChoixCpt::Command2_Click() {
    Retour();
}

void ChoixCpt::Command5_Click() {
    MontrerAide();
}

void ChoixCpt::Command7_Click() {
    // ChoixCpt, Saislog et Choisais : jusqu'au début de la chaîne.
    Quitter();
}

} // namespace ecran
