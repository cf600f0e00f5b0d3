#include "companies/Societe.h"

#include "backup/Backup.h"
#include "backup/Restauration.h"
#include "base/Montant.h"
#include "base/Reglages.h"
#include "base/Texte.h"
#include "base/Valeur.h"
#include "chart/DonneesPlan.h"
#include "companies/CreSociete.h"
#include "companies/General.h"
#include "companies/OuvertureEcrans.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Exercices.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/ChampDate.h"
#include "ui/Fin.h"
#include "ui_Societe.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>

namespace ecran {

namespace {

const QString kQuestionSuppression =
    QStringLiteral("Etes-vous sûr de vouloir supprimer cet exercice ?");

void RebatirFormatMontant() {
    Session& s = session();
    s.FormatMontant = ConstruireFormatMontant(s.Decimales, s.SymboleMonnaie);
}

void Libelle(const QString& nom, const QString& texte) {
    if (General* g = General::Instance()) g->FixerLibelle(nom, texte);
}

int LigneChoisie(const QListWidget* liste) {
    const QList<QListWidgetItem*> choisis = liste->selectedItems();
    return choisis.isEmpty() ? -1 : liste->row(choisis.first());
}

} // namespace

Societe::Societe(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Societe>()) {
    FixerContexteAide(4);
    ui->setupUi(this);
    ui::PreparerChampDate(ui->DateTrav);
    ui->List1->installEventFilter(this);
    ui->List2->installEventFilter(this);
    ui->DateTrav->installEventFilter(this);
    // Comme une liste de l'ancien système : un changement de choix vaut un clic.
    connect(ui->List1, &QListWidget::itemSelectionChanged, this, [this] {
        if (SocieteChoisie() >= 0) List1_Click();
    });
    connect(ui->List2, &QListWidget::itemSelectionChanged, this, [this] {
        if (ExerciceChoisi() >= 0) List2_Click();
    });
    connect(ui->Command1, &QPushButton::clicked, this, &Societe::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Societe::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Societe::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Societe::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &Societe::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &Societe::Command6_Click);
    connect(ui->Command7, &QPushButton::clicked, this, &Societe::Command7_Click);
}

Societe::~Societe() = default;

void Societe::showEvent(QShowEvent* evenement) {
    ui::EcranModal::showEvent(evenement);
    if (charge) return;
    charge = true;
    // Après l'affichage : la création d'une première société s'ouvre par-dessus.
    QTimer::singleShot(0, this, &Societe::Form_Load);
}

void Societe::Form_Load() {
    Session& s = session();
    s.AucuneSociete = false;
    // La requête est finie avant d'ouvrir un autre écran : la base doit pouvoir se fermer.
    const bool vide = NombreSocietes() == 0;
    if (vide) {
        s.ModeCreSociete = 1;
        s.AucuneSociete = true;
        CreSociete creation(this);
        creation.exec();
        if (ui::FinDemandee()) return;
        AffSocietes(creation.NumSocCreee());
        return;
    }
    AffSocietes();
    if (LireReglage(QStringLiteral("Options"), QStringLiteral("Demarrage"), QStringLiteral("0")) ==
        QStringLiteral("1"))
        PreselectionSociete();
}

void Societe::AffSocietes(int numSocAChoisir) {
    QSignalBlocker blocage(ui->List1);
    ui->List1->clear();
    for (const SocieteListe& societe : LireSocietes()) {
        auto* item = new QListWidgetItem(societe.nom);
        item->setData(Qt::UserRole, societe.numero);
        ui->List1->addItem(item);
    }
    session().AucuneSociete = ui->List1->count() == 0;
    if (ui->List1->count() == 0) {
        ui->List2->clear();
        return;
    }
    int ligne = 0;
    for (int i = 0; i < ui->List1->count(); ++i)
        if (ui->List1->item(i)->data(Qt::UserRole).toInt() == numSocAChoisir) ligne = i;
    ui->List1->setCurrentRow(ligne);
    blocage.unblock();
    List1_Click();
}

void Societe::PreselectionSociete() {
    const int numSoc = static_cast<int>(ValeurNumerique(
        LireReglage(QStringLiteral("Societe"), QStringLiteral("Societe"), QStringLiteral("-1"))));
    const int exercice = static_cast<int>(ValeurNumerique(
        LireReglage(QStringLiteral("Societe"), QStringLiteral("Exercice"), QStringLiteral("-1"))));
    const QString date = LireReglage(QStringLiteral("Societe"), QStringLiteral("DateTrav"));
    if (numSoc > -1) ChoisirDonnee(ui->List1, numSoc);
    QCoreApplication::processEvents();
    if (exercice >= 0) {
        ChoisirDonnee(ui->List2, exercice);
        if (ExerciceChoisi() == exercice && !date.isEmpty()) ui::FixerTexteDate(ui->DateTrav, date);
    }
    QCoreApplication::processEvents();
    if (numSoc >= 0 && exercice >= 2) Command4_Click();
}

void Societe::ChoisirDonnee(QListWidget* liste, int donnee) {
    for (int i = 0; i < liste->count(); ++i) {
        if (liste->item(i)->data(Qt::UserRole).toInt() == donnee) {
            liste->setCurrentRow(i);
            return;
        }
    }
}

int Societe::SocieteChoisie() const {
    const int ligne = LigneChoisie(ui->List1);
    return ligne < 0 ? -1 : ui->List1->item(ligne)->data(Qt::UserRole).toInt();
}

int Societe::ExerciceChoisi() const {
    const int ligne = LigneChoisie(ui->List2);
    return ligne < 0 ? -1 : ui->List2->item(ligne)->data(Qt::UserRole).toInt();
}

void Societe::List1_Click() {
    ui->List2->clear();
    const int numSoc = SocieteChoisie();
    if (numSoc < 0) return;
    {
        const QSignalBlocker blocage(ui->List2);
        for (const ExerciceListe& e : LireExercices(numSoc)) {
            auto* item = new QListWidgetItem(
                QStringLiteral("Exercice %1 (%2)")
                    .arg(QString::number(e.annee),
                         e.clos ? QStringLiteral("Clos") : QStringLiteral("Ouvert")));
            item->setData(Qt::UserRole, e.annee);
            ui->List2->addItem(item);
        }
        ui->List2->setCurrentRow(-1);
    }
    ui::PreparerChampDate(ui->DateTrav);
}

void Societe::List2_Click() {
    const int exercice = ExerciceChoisi();
    if (exercice < 0) return;
    table::Constante c;
    if (LireConstante(CleExercice(SocieteChoisie(), exercice), c)) {
        dateAncienne = DateVersEcran(c.DateSaisie.trimmed());
        ui::FixerTexteDate(ui->DateTrav, dateAncienne);
    }
    if (session().ModeDebug) {
        QCoreApplication::processEvents();
        Command4_Click();
    }
}

bool Societe::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::KeyPress) {
        const int cle = static_cast<QKeyEvent*>(evenement)->key();
        // Comme une liste sans choix de l'ancien système : la flèche choisit la première ligne.
        if (objet == ui->List2 && (cle == Qt::Key_Down || cle == Qt::Key_Up) &&
            ui->List2->count() > 0 && ExerciceChoisi() < 0) {
            ui->List2->setCurrentRow(0);
            return true;
        }
        if (cle == Qt::Key_Return || cle == Qt::Key_Enter) {
            if (objet == ui->List1) {
                ui->List2->setFocus(Qt::TabFocusReason);
            } else if (objet == ui->List2) {
                ui->DateTrav->setFocus(Qt::TabFocusReason);
                ui->DateTrav->setCursorPosition(0);
            } else if (objet == ui->DateTrav) {
                Command4_Click();
            }
            return true;
        }
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

void Societe::Command1_Click() {
    session().ModeCreSociete = 1;
    CreSociete creation(this);
    creation.exec();
    if (ui::FinDemandee()) return;
    AffSocietes(creation.NumSocCreee() > 0 ? creation.NumSocCreee() : SocieteChoisie());
}

void Societe::Command2_Click() {
    const int numSoc = SocieteChoisie();
    if (numSoc < 0) return;
    session().ModeCreSociete = 2;
    CreSociete modification(this);
    modification.FixerNumSoc(numSoc);
    modification.exec();
    if (ui::FinDemandee()) return;
    AffSocietes(numSoc);
}

void Societe::Command3_Click() {
    const int numSoc = SocieteChoisie();
    if (numSoc < 0) return;
    if (ui->List2->count() > 0 && ExerciceChoisi() >= 0) {
        SupprimerExerciceChoisi(numSoc);
    } else if (ui->List2->count() > 0) {
        ui::Boite(QStringLiteral("Avant de supprimer une société vous devez supprimer ses "
                                 "exercices.\nSélectionnez l'exercice à supprimer et recommencez."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
    } else {
        SupprimerSociete(numSoc);
    }
}

void Societe::SupprimerExerciceChoisi(int numSoc) {
    const int exercice = ExerciceChoisi();
    double nombre = 0;
    bool clos = false;
    LireEtatExercice(numSoc, exercice, nombre, clos);
    const QString n = QString::number(nombre, 'f', 0);
    if (nombre == 0 || clos) {
        const QString texte = ui->List2->item(LigneChoisie(ui->List2))->text();
        if (ui::Boite(texte + QLatin1Char('\n') + kQuestionSuppression, QStringLiteral("Maroval"),
                      ui::Icone::Question, ui::Boutons::OuiNon, 2) != ui::Reponse::Oui)
            return;
    } else {
        if (ui::Boite(
                QStringLiteral("Vous avez enregistré %1 écritures pour cet exercice.\n").arg(n) +
                    kQuestionSuppression,
                QStringLiteral("Maroval"), ui::Icone::Question,
                ui::Boutons::OuiNon) != ui::Reponse::Oui)
            return;
        if (ui::Boite(
                QStringLiteral("Si vous répondez OUI, vous supprimerez %1 écritures ! ! !").arg(n),
                QStringLiteral("ATTENTION.. DERNIER AVERTISSEMENT"), ui::Icone::Critique,
                ui::Boutons::OuiNon, 2) != ui::Reponse::Oui)
            return;
    }
    SupprimerExercice(numSoc, exercice);
    delete ui->List2->takeItem(LigneChoisie(ui->List2));
    if (ui->List2->count() > 0)
        ui->List2->setCurrentRow(0);
    else
        ui::PreparerChampDate(ui->DateTrav);
}

void Societe::SupprimerSociete(int numSoc) {
    const int ligne = LigneChoisie(ui->List1);
    ui::Boite(QStringLiteral("La société \"%1\" va maintenant être supprimée.")
                  .arg(ui->List1->item(ligne)->text()),
              QStringLiteral("Maroval"), ui::Icone::Information);
    RetirerSociete(numSoc);
    {
        const QSignalBlocker blocage(ui->List1);
        delete ui->List1->takeItem(ligne);
        ui->List1->clearSelection();
        ui->List1->setCurrentRow(-1);
    }
    // La clé vidée est celle de la société ouverte, non celle de la supprimée : les profils
    // existants ont été écrits ainsi, et le plan retenu n'est qu'une commodité.
    plan::RetenirPlan(session().NumSocCourante, QString());
}

void Societe::Command4_Click() {
    Session& s = session();
    const int numSoc = SocieteChoisie();
    if (numSoc < 0) {
        ui::Boite(QStringLiteral("Commencez par sélectionner ou créer une comptabilité."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
    s.NumSocCourante = static_cast<std::int16_t>(numSoc);
    const int exercice = ExerciceChoisi();
    if (exercice < 0) {
        ui::Boite(QStringLiteral("N'oubliez pas de sélectionner l'exercice."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
    s.ExerciceCourant = static_cast<std::int16_t>(exercice);
    const QString date = ui::TexteDate(ui->DateTrav);
    s.DateSaisieCourante = date;

    const QString cle = CleExercice(numSoc, exercice);
    table::Constante c;
    if (!LireConstante(cle, c)) return;
    s.MoisDebutExercice = CalculMoisDebutExercice(c.DateDebut);
    s.MonnaieExercice = c.SymboleMon.trimmed();
    RebatirFormatMontant();
    if (s.MonnaieExercice == QStringLiteral("X")) {
        const ui::Reponse r = ui::Boite(
            QStringLiteral("La monnaie de l'exercice que vous venez de restaurer est indéfinie.\n"
                           "Vous devez choisir entre les Francs ou les Euros\n"
                           "Si vous cliquez OUI la monnaie de votre exercice sera le Franc\n"
                           "Si vous cliquez NON la monnaie de votre exercice sera l'Euro"),
            QStringLiteral("ATTENTION"), ui::Icone::Question, ui::Boutons::OuiNonAnnuler);
        if (r == ui::Reponse::Annuler) return;
        s.MonnaieExercice = r == ui::Reponse::Oui ? QStringLiteral("F") : QStringLiteral("E");
        c.SymboleMon = s.MonnaieExercice;
        MajConstante(cle, c);
        RebatirFormatMontant();
    }

    table::Societe societe;
    LireSociete(numSoc, societe);
    s.NomSocCourante = societe.Nom.left(30).trimmed();
    Libelle(QStringLiteral("LBSociete"), s.NomSocCourante);
    Libelle(QStringLiteral("LBDateExo"), DateVersEcran(c.DateDebut.trimmed()) +
                                             QStringLiteral(" au ") +
                                             DateVersEcran(c.DateFin.trimmed()));
    Libelle(QStringLiteral("LBDateSaisie"), s.DateSaisieCourante);

    if (!DateValide(date)) {
        ui::Boite(QStringLiteral("La date a été mal saisie."), QStringLiteral("Maroval"),
                  ui::Icone::Exclamation);
        ui->DateTrav->setFocus();
        return;
    }
    const QString dateBase = DateVersBase(date);
    if (dateBase > c.DateFin.trimmed()) {
        ui::Boite(QStringLiteral("Interdit: votre date de saisie dépasse la fin de l'exercice."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        ui->DateTrav->setFocus();
        return;
    }
    // Une date de saisie ne revient jamais en arrière.
    if (DateValide(dateAncienne) && dateBase < DateVersBase(dateAncienne)) {
        ui::Boite(QStringLiteral("Interdit: votre date de saisie est antérieure à la précédente."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        ui->DateTrav->setFocus();
        return;
    }
    if (date.mid(3, 2) != dateAncienne.mid(3, 2) &&
        ui::Boite(QStringLiteral("Vous êtes en train de changer de mois de saisie.\n"
                                 "Il serait bon de penser à faire une sauvegarde.\n"
                                 "Confirmez-vous cette nouvelle date de saisie ?"),
                  QStringLiteral("Maroval : Conseil"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui)
        return;
    if (date != dateAncienne) {
        c.DateSaisie = dateBase;
        MajConstante(cle, c);
    }
    // Seul Non arrête : la question n'est qu'un rappel, Annuler continue comme Oui.
    if (!s.ModeDebug && date == dateAncienne &&
        ui::Boite(QStringLiteral("Vous n'avez pas modifié la date de saisie. Etes-vous sûr(e) de "
                                 "vouloir continuer ?"),
                  QStringLiteral("Maroval : Confirmation "), ui::Icone::Question,
                  ui::Boutons::OuiNonAnnuler) == ui::Reponse::Non)
        return;
    Libelle(QStringLiteral("LBExercice"), QString::number(exercice));

    EcrireReglage(QStringLiteral("Societe"), QStringLiteral("Societe"), QString::number(numSoc));
    EcrireReglage(QStringLiteral("Societe"), QStringLiteral("Exercice"), QString::number(exercice));
    EcrireReglage(QStringLiteral("Societe"), QStringLiteral("DateTrav"), date);

    QWidget* dessous = parentWidget();
    accept();
    // Sauvegarde ouverte depuis le bureau : sa restauration suit le choix.
    if (EstArchiveLigneCommande(s.LigneCommande)) OuvrirEcran<Backup>(dessous);
}

void Societe::Command5_Click() {
    ui::TerminerProgramme(0);
}

void Societe::Command6_Click() {
    ui::AfficherAide(4);
}

void Societe::Command7_Click() {
    ui::AfficherAide(20);
}

bool Societe::ChoixValide() const {
    // Ouvert depuis le menu avec un exercice déjà choisi (et toujours présent).
    const Session& s = session();
    if (s.NumSocCourante <= 0 || s.ExerciceCourant <= 0) return false;
    table::Societe societe;
    table::Constante c;
    return LireSociete(s.NumSocCourante, societe) && LireConstante(CleCourante(), c);
}

void Societe::closeEvent(QCloseEvent* evenement) {
    if (ChoixValide()) {
        ui::EcranModal::closeEvent(evenement);
        return;
    }
    // Sans choix, fermer la fenêtre revient à quitter Maroval.
    evenement->ignore();
    Command5_Click();
}

} // namespace ecran
