#include "entry/ChoixCpt.h"

#include "entry/LigneMenu.h"
#include "entry/SessionSaisie.h"
#include "session/Montant.h"
#include "session/Session.h"
#include "store/Acces.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui_ChoixCpt.h"

#include <QShowEvent>

#if __has_include("entry/SaisQuad.h")
#include "entry/SaisQuad.h"
#define MAROVAL_SAISQUAD 1
#endif
#include "chart/Plan2.h"
#include "consultation/DetailCp.h"

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
    connect(ui->Tree1, &QTreeWidget::itemDoubleClicked, this, &ChoixCpt::Command4_Click);
    connect(ui->Tree2, &QTreeWidget::itemDoubleClicked, this, &ChoixCpt::Command6_Click);
    connect(ui->Tree1, &ui::Grille::touche, this, &ChoixCpt::Tree1_KeyDown);
    Form_Load();
}

ChoixCpt::~ChoixCpt() = default;

void ChoixCpt::Form_Load() {
    ui->BCrappel->setVisible(MenuAvecRappel(CleMenuSaisie()));
    if (parentWidget()) parentWidget()->unsetCursor();
    NumLigneSaisie = 0;
    table::Tableau t;
    const bool trouve = LireLigneMenu(CleMenuSaisie() + QLatin1Char('1'), t);
    LigneMenuSaisie() = t.tLibMenuprinc;
    if (trouve) ui->Label3->setText(t.tLibMenuprinc);
    ui->Option1->setText(t.tMessage);
    QRadioButton* options[] = {ui->Option2, ui->Option3};
    for (int slot = 2; slot <= 3; ++slot) {
        QRadioButton* o = options[slot - 2];
        if (LireLigneMenu(CleMenuSaisie() + QString::number(slot), t)) {
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
    if (!EcriturePassee()) {
        ChoisirOption(1);
        return;
    }
    // L'écriture vient d'être passée : l'option de la suivante dépend de la famille.
    const QString cle = CleMenuSaisie();
    const QChar famille = cle.isEmpty() ? QChar() : cle.at(0);
    if (famille == u'1' || famille == u'2')
        ChoisirOption(cle.mid(1, 1) == QLatin1String("1") ? 3 : 1);
    else if (famille == u'3')
        ChoisirOption(2);
    else
        ChoisirOption(1);
    if (!ui->BCrappel->isChecked()) {
        Base().exec("DELETE FROM wSaisie");
        ui->Tree2->Vider();
        ChoisirOption(1);
        return;
    }
    // Les comptes rappelés reviennent à zéro ; conversion et résultat ne reviennent jamais.
    Base().exec("DELETE FROM wSaisie WHERE wRappel=0");
    Base().exec("DELETE FROM wSaisie WHERE (wNumCpt='677' OR wNumCpt='777' OR wNumCpt='107')");
    Base().exec("UPDATE wSaisie SET wMntEcr=0 WHERE wMntEcr<>0");
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
    LireLigneMenu(CleMenuSaisie() + slot, t);
    std::string sql = "SELECT NumCpt, LibCpt, Solde FROM Compte WHERE CleCpt=? AND ";
    if (t.tTaille == 1 && t.tMenuAutorise.left(3).toInt() == 999) {
        // Tout le plan, sauf les collectifs et les comptes de résultat.
        sql += "NumCpt<>'400     ' AND NumCpt<>'410     ' AND NumCpt<>'699     ' AND "
               "NumCpt<>'799     '";
    } else {
        QStringList classes;
        for (int n = 1; n <= t.tTaille; ++n)
            classes << QStringLiteral("Menu=%1").arg(std::int16_t(ClasseAutorisee(t, n)));
        // Une case sans classe ne propose rien.
        sql += classes.isEmpty() ? std::string("0")
                                 : "(" + classes.join(QStringLiteral(" OR ")).toStdString() + ")";
    }
    auto& q = Requete(sql + " ORDER BY NumCpt");
    q.bind(1, CleCourante().toStdString());
    ui::Grille* g = ui->Tree1;
    g->setUpdatesEnabled(false);
    g->Vider();
    while (q.executeStep()) {
        const Montant solde = Montant::depuisDixMilliemes(q.getColumn(2).getInt64());
        g->AjouterLigne({TexteLu(QString::fromUtf8(q.getColumn(0).getText()), 8),
                         QString::fromUtf8(q.getColumn(1).getText()),
                         FormaterMontant(solde, session().FormatMontant)});
    }
    q.reset();
    g->Trier(0, Qt::AscendingOrder);
    g->setUpdatesEnabled(true);
}

void ChoixCpt::RemplirTree2() {
    ui->Tree2->Vider();
    auto& q = Requete("SELECT wNumCpt, wLibCpt FROM wSaisie ORDER BY wMenuLigne, rowid");
    while (q.executeStep())
        ui->Tree2->AjouterLigne({TexteLu(QString::fromUtf8(q.getColumn(0).getText()), 8),
                                 QString::fromUtf8(q.getColumn(1).getText())});
    q.reset();
}

void ChoixCpt::Command4_Click() {
    const QString slot = QString::number(SlotCoche());
    const int ligne = ui->Tree1->LigneCourante();
    if (ligne < 0) return;
    const QString numero = ui->Tree1->Texte(ligne, 0).left(8).trimmed();
    table::Saisie dejaLa;
    if (acces::LireLigne("wSaisie", "wNumCpt=?", dejaLa, numero)) {
        ui::Boite(QStringLiteral("Le compte \"%1 %2\" est déjà présent.")
                      .arg(dejaLa.wNumCpt, dejaLa.wLibCpt.trimmed()),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
    table::Compte c;
    // Un compte retiré du plan entre-temps vaut une absence de choix.
    if (!LireCompte(CleCourante(), numero, c)) return;
    table::Tableau t;
    LireLigneMenu(CleMenuSaisie() + slot, t);
    table::Saisie r = LignePreparee(c, t, ++NumLigneSaisie, CleMenuSaisie() + slot);
    AjouterSaisie(r);
    RemplirTree2();
}

void ChoixCpt::Command6_Click() {
    const int ligne = ui->Tree2->LigneCourante();
    if (ligne < 0) return;
    const QString numero = ui->Tree2->Texte(ligne, 0).left(8).trimmed();
    auto& q = Requete("DELETE FROM wSaisie WHERE rowid=(SELECT rowid FROM wSaisie WHERE "
                      "wNumCpt=? ORDER BY rowid LIMIT 1)");
    q.bind(1, numero.toStdString());
    q.exec();
    RemplirTree2();
}

void ChoixCpt::Tree1_KeyDown(int cle) {
    if (cle == Qt::Key_Return || cle == Qt::Key_Enter) Command4_Click();
}

void ChoixCpt::Command3_Click() {
    if (Base().execAndGet("SELECT COUNT(*) FROM wSaisie").getInt() < 2) {
        ui::Boite(QStringLiteral("Il faut au moins deux comptes pour passer une écriture."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
#ifdef MAROVAL_SAISQUAD
    SaisQuad e(this);
    e.exec();
#endif
}

void ChoixCpt::Command1_Click() {
    Plan2 e(this);
    e.Command5_Click();
    e.exec();
    RemplirCompteLog(QString::number(SlotCoche()));
}

void ChoixCpt::Command8_Click() {
    const int ligne = ui->Tree1->LigneCourante();
    if (ligne < 0 || !ui->Tree1->EstSelectionnee(ligne)) {
        ui::Boite(QStringLiteral("Aucun compte n'est sélectionné !"), QStringLiteral("Maroval"),
                  ui::Icone::Information);
        return;
    }
    CompteChoisi() = ui->Tree1->Texte(ligne, 0).left(8).trimmed();
    // Posé avant l'ouverture : le retour du détail réactive l'écran pendant l'exec.
    RetourDetail = true;
    DetailCp e(this);
    e.exec();
}

void ChoixCpt::Command2_Click() {
    Retour();
}

void ChoixCpt::Command5_Click() {
    ui::AfficherAide(10);
}

void ChoixCpt::Command7_Click() {
    // ChoixCpt, Saislog et Choisais : jusqu'au début de la chaîne.
    Quitter();
}

} // namespace ecran
