#include "entry/SaisDC2.h"

#include "base/Texte.h"
#include "chart/Plan2.h"
#include "entry/ControlesSaisie.h"
#include "entry/DonneesSaisie.h"
#include "entry/LigneMenu.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/ChampDate.h"
#include "ui_SaisDC2.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

namespace ecran {

namespace {

QString NomJournal(const QString& journal) {
    if (journal == QLatin1String("V")) return QStringLiteral("Journal des ventes");
    if (journal == QLatin1String("A")) return QStringLiteral("Journal des achats");
    if (journal == QLatin1String("T")) return QStringLiteral("Journal de trésorerie");
    if (journal == QLatin1String("D")) return QStringLiteral("Journal des opérations diverses");
    if (journal == QLatin1String("I")) return QStringLiteral("Journal d'inventaire");
    return {};
}

QString NomOperation(const QString& ligne) {
    if (ligne == QLatin1String("31")) return QStringLiteral(" : Encaissements clients");
    if (ligne == QLatin1String("32")) return QStringLiteral(" : Règlements fournisseurs");
    if (ligne == QLatin1String("33")) return QStringLiteral(" : Encaissements produits");
    if (ligne == QLatin1String("34")) return QStringLiteral(" : Règlements charges");
    if (ligne == QLatin1String("37")) return QStringLiteral(" : Encaissements/Règlements divers");
    return {};
}

// Cases de Tableau dont les classes font la liste des comptes du journal ; vide quand
// le journal prend tout le plan sauf quelques comptes.
QStringList CasesDuJournal(const QString& journal, const QString& ligne) {
    if (journal == QLatin1String("V")) return {"111", "112", "113"};
    if (journal == QLatin1String("A")) return {"211", "212", "213"};
    if (journal == QLatin1String("T") &&
        (ligne == QLatin1String("33") || ligne == QLatin1String("34")))
        return {ligne + u'1', ligne + u'2', ligne + u'3'};
    if (journal == QLatin1String("T") &&
        (ligne == QLatin1String("31") || ligne == QLatin1String("32")))
        return {ligne + u'1', ligne + u'2'};
    return {};
}

// Comptes de Tree1 : ceux des classes des cases réunies, ou tout le plan moins quelques
// comptes (l'inventaire seul offre les comptes de résultat 699 et 799).
std::vector<saisie::CompteOffert> ComptesDuJournal(const QString& journal, const QString& ligne) {
    if (journal == QLatin1String("I")) return saisie::ComptesSauf({"400", "410"});
    const QStringList cases = CasesDuJournal(journal, ligne);
    if (cases.isEmpty()) return saisie::ComptesSauf({"400", "410", "699", "799"});
    QList<int> classes;
    for (const QString& c : cases) {
        table::Tableau t;
        if (LireLigneMenu(c, t)) classes += saisie::ClassesDeLaCase(t);
    }
    return saisie::ComptesDesClasses(classes);
}

} // namespace

SaisDC2::SaisDC2(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::SaisDC2>()) {
    FixerContexteAide(8);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes(
        {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
    ui->Tree2->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Libellé"),
                              QStringLiteral("Débit"), QStringLiteral("Crédit")});
    // Les quatre colonnes des lignes tiennent dans la moitié droite de l'écran.
    const QList<QPair<ui::Grille*, QList<int>>> largeurs{{ui->Tree1, {80, 200, 110}},
                                                         {ui->Tree2, {80, 140, 100, 100}}};
    for (const auto& [grille, colonnes] : largeurs)
        for (int c = 0; c < colonnes.size(); ++c)
            grille->FixerLargeurColonne(c, colonnes[c]);
    ui::PreparerChampDate(ui->Text1);
    ui::PreparerChampDate(ui->Text3);
    ui->Tree2->FixerValidation([this](int ligne, int colonne, QString& texte) {
        return ValiderMontant(ligne, colonne, texte);
    });
    for (QWidget* w : {static_cast<QWidget*>(ui->Text1), static_cast<QWidget*>(ui->Text2),
                       static_cast<QWidget*>(ui->Text3), static_cast<QWidget*>(ui->Text4),
                       static_cast<QWidget*>(ui->Tree1), static_cast<QWidget*>(ui->Tree2)})
        w->installEventFilter(this);
    connect(ui->BAjout, &QPushButton::clicked, this, &SaisDC2::BAjout_Click);
    connect(ui->BSuppr, &QPushButton::clicked, this, &SaisDC2::BSuppr_Click);
    connect(ui->Check1, &QCheckBox::clicked, this, &SaisDC2::Check1_Click);
    connect(ui->Text4, &QLineEdit::textEdited, this, &SaisDC2::Text4_Change);
    connect(ui->Tree1, &ui::Grille::ligneDoubleCliquee, this, &SaisDC2::BAjout_Click);
    connect(ui->Tree2, &ui::Grille::ligneCliquee, this, &SaisDC2::Tree2_Click);
    connect(ui->Tree2, &ui::Grille::ligneDoubleCliquee, this, &SaisDC2::BSuppr_Click);
    connect(ui->Tree2, &ui::Grille::touche, this, &SaisDC2::Tree2_Touche);
    connect(ui->Command1, &QPushButton::clicked, this, &SaisDC2::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &SaisDC2::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &SaisDC2::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &SaisDC2::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &SaisDC2::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &SaisDC2::Command6_Click);
    Form_Load();
}

SaisDC2::~SaisDC2() = default;

void SaisDC2::Form_Load() {
    NumLigneSaisie = 0;
    ui->Command1->setEnabled(false);
    const saisie::Entete entete = saisie::LireEntete();
    ui->Label1->setText(entete.numero);
    ui::FixerTexteDate(ui->Text1, DateVersEcran(entete.dateSaisie));
    const QString zero = FormaterMontant(Montant(), session().FormatMontant);
    ui->LTotDeb->setText(zero);
    ui->LTotCre->setText(zero);
    const QString journal = session().JournalSaisie;
    QString titre = QStringLiteral("Saisie Débits / Crédits : ") + NomJournal(journal);
    if (journal == QLatin1String("T")) titre += NomOperation(session().LigneMenuSaisie);
    setWindowTitle(titre);
    const bool echeance = journal == QLatin1String("V") || journal == QLatin1String("A");
    ui->Text3->setVisible(echeance);
    ui->Label5->setVisible(echeance);
    RemplirCompteDC();
    ReconstruireDepuisSaisie(false);
}

void SaisDC2::RemplirCompteDC() {
    AfficherComptesOfferts(ui->Tree1,
                           ComptesDuJournal(session().JournalSaisie, session().LigneMenuSaisie));
}

// Tree2 refait depuis wSaisie : la vérité est dans les lignes, pas dans les cellules.
void SaisDC2::ReconstruireDepuisSaisie(bool avecMontants) {
    ui->Tree2->Vider();
    for (const saisie::Ligne& l : saisie::LireLignes()) {
        QString debit, credit;
        if (avecMontants)
            (l.s.wDCEcr.trimmed() == QLatin1String("D") ? debit : credit) =
                FormaterMontant(l.s.wMntEcr.abs(), session().FormatMontant);
        ui->Tree2->AjouterLigne({l.s.wNumCpt.trimmed(), l.s.wLibCpt.trimmed(), debit, credit},
                                l.s.wNumEcrt);
    }
}

void SaisDC2::BAjout_Click() {
    const int ligne = ui->Tree1->LigneCourante();
    if (ligne < 0) return;
    const QString numero = ui->Tree1->Texte(ligne, 0).trimmed();
    if (CompteDejaPresent(numero)) return;
    table::Compte c;
    // Un compte supprimé entre-temps vaut une ligne non choisie.
    if (!LireCompte(CleCourante(), numero, c)) return;
    table::Saisie s = saisie::LigneDuCompteChoisi(c, ++NumLigneSaisie, session().JournalSaisie);
    saisie::AjouterLigne(s);
    ui->Tree2->AjouterLigne({numero, c.LibCpt.trimmed(), QString(), QString()}, s.wNumEcrt);
    if (ui->Check1->isChecked()) ui->Tree2->Trier(0);
}

void SaisDC2::BSuppr_Click() {
    ui::Grille* t2 = ui->Tree2;
    if (t2->NombreLignes() == 0) return;
    const int ligne = qMax(0, t2->LigneCourante());
    if (t2->EditionOuverte()) t2->AnnulerEdition();
    saisie::RetirerLigneNumero(t2->DonneeLigne(ligne).toDouble());
    t2->SupprimerLigne(ligne);
    MajTotDC2();
}

void SaisDC2::Check1_Click() {
    if (ui->Check1->isChecked()) ui->Tree2->Trier(0);
}

void SaisDC2::Text4_Change() {
    QLineEdit* t4 = ui->Text4;
    const int curseur = t4->cursorPosition();
    t4->setText(t4->text().toUpper());
    t4->setCursorPosition(curseur);
    ui::Grille* t1 = ui->Tree1;
    if (t1->NombreLignes() == 0) return;
    const QString cherche = t4->text();
    int trouve = t1->NombreLignes() - 1;
    for (int l = 0; l < t1->NombreLignes(); ++l)
        if (t1->Texte(l, 0) >= cherche) {
            trouve = l;
            break;
        }
    t1->FixerLigneCourante(trouve);
    t1->RendreVisible(trouve);
}

void SaisDC2::Command2_Click() {
    Retour();
}

void SaisDC2::Command3_Click() {
    MontrerAide();
}

void SaisDC2::Command4_Click() {
    Plan2 plan(this);
    plan.exec();
    RemplirCompteDC();
}

void SaisDC2::Command5_Click() {
    // SaisDC2, SaisDC et le début de la chaîne.
    Quitter();
}

void SaisDC2::Command6_Click() {
    OuvrirDetailCompte(this, CompteSelectionne(ui->Tree1));
}

void SaisDC2::Aller(QWidget* cible) {
    if (cible) cible->setFocus(Qt::OtherFocusReason);
}

bool SaisDC2::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::KeyPress) {
        const int cle = static_cast<QKeyEvent*>(evenement)->key();
        if (ToucheChamp(objet, cle) || ToucheListe(objet, cle)) return true;
    } else if (evenement->type() == QEvent::FocusOut) {
        const auto raison = static_cast<QFocusEvent*>(evenement)->reason();
        // Une boîte ou une autre fenêtre qui prend la main n'est pas une sortie du champ.
        if (raison != Qt::ActiveWindowFocusReason && raison != Qt::PopupFocusReason &&
            PerteFocus(objet))
            return false;
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

bool SaisDC2::ToucheChamp(QObject* objet, int cle) {
    const bool entree = cle == Qt::Key_Return || cle == Qt::Key_Enter;
    QWidget* apresLibelle = ui->Text3->isVisible() ? static_cast<QWidget*>(ui->Text3)
                                                   : static_cast<QWidget*>(ui->Text4);
    if (objet == ui->Text1 && entree) {
        Aller(ui->Text2);
    } else if (objet == ui->Text2 && entree) {
        Aller(apresLibelle);
    } else if (objet == ui->Text3 && (entree || cle == Qt::Key_Down)) {
        Aller(ui->Text4);
    } else if (objet == ui->Text3 && cle == Qt::Key_Up) {
        Aller(ui->Text2);
    } else if (objet == ui->Text4 && entree) {
        const QString texte = ui->Text4->text().trimmed();
        const int l = ui->Tree1->LigneCourante();
        if (ui->Text4->text().isEmpty()) {
            Aller(ui->Tree1);
        } else if (l >= 0 && ui->Tree1->Texte(l, 0).trimmed() == texte) {
            BAjout_Click();
            ui->Text4->clear();
        }
    } else if (objet == ui->Text4 && cle == Qt::Key_Up) {
        Aller(ui->Text3->isVisible() ? static_cast<QWidget*>(ui->Text3)
                                     : static_cast<QWidget*>(ui->Text2));
    } else if (objet == ui->Text4 && cle == Qt::Key_Right) {
        Aller(ui->Tree2);
    } else {
        return false;
    }
    return true;
}

bool SaisDC2::ToucheListe(QObject* objet, int cle) {
    if (objet == ui->Tree1) {
        const int l = ui->Tree1->LigneCourante(), n = ui->Tree1->NombreLignes();
        if (cle == Qt::Key_Return || cle == Qt::Key_Enter) {
            BAjout_Click();
        } else if (cle == Qt::Key_Right || (cle == Qt::Key_Down && l == n - 1)) {
            Aller(ui->Tree2);
        } else if (cle == Qt::Key_Up && l <= 0) {
            Aller(ui->Text4);
        } else {
            return false;
        }
        return true;
    }
    if (objet == ui->Tree2 && !ui->Tree2->EditionOuverte()) {
        const int l = ui->Tree2->LigneCourante(), n = ui->Tree2->NombreLignes();
        if ((cle == Qt::Key_Left || cle == Qt::Key_Up) && l <= 0) {
            Aller(ui->Tree1);
        } else if (cle == Qt::Key_Down && l == n - 1) {
            Aller(ui->Command1->isEnabled() ? ui->Command1 : ui->Command2);
        } else if (cle == Qt::Key_Delete) {
            BSuppr_Click();
        } else {
            return false;
        }
        return true;
    }
    return false;
}

bool SaisDC2::PerteFocus(QObject* objet) {
    if (objet == ui->Text1 || objet == ui->Text3) {
        ControlerChampDate(static_cast<QLineEdit*>(objet), objet == ui->Text3);
        return true;
    }
    if (objet == ui->Text2 && !ControlerChampLibelle(ui->Text2)) {
        if (ui->Text3->isVisible()) Aller(ui->Text3);
        return true;
    }
    return false;
}

} // namespace ecran
