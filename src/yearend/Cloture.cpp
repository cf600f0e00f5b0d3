#include "yearend/Cloture.h"

#include "base/Montant.h"
#include "base/Valeur.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/Sablier.h"
#include "yearend/DonneesCloture.h"

#include "ui_Cloture.h"

#include <QCoreApplication>

namespace ecran {

namespace {

const QString Titre = QStringLiteral("Maroval");

void Information(const QString& texte) {
    ui::Boite(texte, Titre, ui::Icone::Information);
}

bool Question(const QString& texte) {
    return ui::Boite(texte, Titre, ui::Icone::Question, ui::Boutons::OuiNon) == ui::Reponse::Oui;
}

// AAAAMMJJ -> AAAA/MM/JJ, après les blancs retirés.
QString DateLisible(const QString& date) {
    const QString d = date.trimmed();
    return d.left(4) + QLatin1Char('/') + d.mid(4, 2) + QLatin1Char('/') + d.mid(6, 2);
}

// Les totaux comparés à la précision affichée.
Montant Affiche(Montant m) {
    return MontantDepuisTexte(FormaterMontant(m, session().FormatMontant));
}

} // namespace

Cloture::Cloture(QWidget* parent) : ui::EcranModal(parent), ui(new Ui::Cloture) {
    FixerContexteAide(13);
    ui->setupUi(this);
    ui->Gauge1->setRange(0, 100);
    ui->Gauge1->hide();
    connect(ui->Command1, &QPushButton::clicked, this, &Cloture::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Cloture::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Cloture::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Cloture::Command4_Click);
    Form_Load();
}

Cloture::~Cloture() {
    delete ui;
}

void Cloture::Form_Load() {
    // NouveauPC suit la base à chaque ouverture, quoi qu'il ait tenu.
    const QString cle = CleCourante();
    const bool existe = cloture::ConstanteExiste(cloture::CleSuivante());
    ui->Command1->setEnabled(!existe);
    table::Constante k;
    if (LireConstante(cle, k)) {
        k.NouveauPC = existe;
        MajConstante(cle, k);
    }
}

void Cloture::Command1_Click() {
    const QString cle = CleCourante();
    const QString suivante = cloture::CleSuivante();
    table::Constante k;
    LireConstante(cle, k);
    // Un bilan d'ouverture équilibré jamais clos l'est ici, mais au dernier mois seulement.
    const int moisFin = static_cast<int>(ValeurNumerique(k.DateFin.mid(4, 2)));
    const int moisSaisie =
        static_cast<int>(ValeurNumerique(session().DateSaisieCourante.mid(3, 2)));
    if (moisFin == moisSaisie && !k.OuvertureClos && k.SDE1 == k.SDR1) {
        k.OuvertureClos = true;
        MajConstante(cle, k);
    }
    if (!k.OuvertureClos) {
        Information(QStringLiteral("Votre bilan d’ouverture n’est pas équilibré.\n\n Voir le choix "
                                   "Plan et le bouton Création du premier bilan d’ouverture."));
        return;
    }
    if (k.SDE1 != k.SDR1) {
        Information(QStringLiteral("Vous ne pouvez pas créer le plan comptable de \n"
                                   "l’exercice suivant car vous n’avez pas encore \n"
                                   "fait le transfert définitif des soldes de l’exercice \n"
                                   "précédent sur l’exercice en cours."));
        return;
    }
    {
        ui::Sablier sablier;
        cloture::CreerPlanSuivant(cle, suivante, k);
        LireConstante(cle, k);
        k.NouveauPC = true;
        MajConstante(cle, k);
    }
    ui->Command1->setEnabled(false);
    Information(QStringLiteral("Le plan comptable de l’exercice suivant est créé.\n\n"
                               "Pour saisir des écritures sur ce nouvel exercice il suffit de le "
                               "choisir\nlorsque vous lancez le programme"));
    if (Question(QStringLiteral("Voulez-vous faire un transfert provisoire des soldes\n"
                                "de l’exercice en cours sur le nouvel exercice que vous venez de "
                                "créer ?")))
        Command2_Click();
}

void Cloture::Command2_Click() {
    const QString cle = CleCourante();
    const QString suivante = cloture::CleSuivante();
    const QString rappel =
        QStringLiteral("Il est recommandé de faire une sauvegarde de l'exercice en cours,\n"
                       "puis de relancer le logiciel en sélectionnant l'exercice suivant\n"
                       "et de faire également une sauvegarde de ce nouvel exercice.");
    table::Constante k;
    LireConstante(cle, k);
    const Montant resultat = k.Resultat;
    const QString dateFin = DateLisible(k.DateFin);
    const QString dateSaisie = DateLisible(k.DateSaisie);
    if (!k.NouveauPC) {
        Information(QStringLiteral("Le nouveau plan comptable n’existe pas encore.\n\n"
                                   "Commencez par lancer le choix : Création du plan comptable "
                                   "de l’exercice suivant."));
        return;
    }

    ui->Gauge1->setValue(0);
    ui->Gauge1->show();
    ui->Command3->setEnabled(false);
    ui->Command4->setEnabled(false);
    {
        ui::Sablier sablier;
        // L'écran reste lié à la passe : une erreur rend les boutons avant de remonter.
        struct Rendre {
            Ui::Cloture* u;
            ~Rendre() {
                u->Gauge1->hide();
                u->Command3->setEnabled(true);
                u->Command4->setEnabled(true);
            }
        } rendre{ui};
        cloture::TransfererSoldes(cle, suivante, [this](int n) {
            ui->Gauge1->setValue(n);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
    }

    table::Constante n;
    LireConstante(suivante, n);
    if (Affiche(n.SDE1) != Affiche(n.SDR1)) {
        Information(
            QStringLiteral("Vous venez de faire un transfert provisoire des soldes de\n"
                           "l’exercice en cours sur l’exercice suivant. Vous pouvez relancer\n"
                           "ce transfert provisoire autant de fois que vous le désirez.\n"
                           "\n"
                           "Nous rappelons que le choix Ecriture du résultat des\n"
                           "opérations d’inventaire de la saisie logique (ou son équivalent en\n"
                           "débits/crédits) vous permet d’équilibrer le bilan ce qui autorise\n"
                           "un nouveau transfert que le logiciel détectera comme pouvant\n"
                           "être définitif.\n"
                           "\n"
                           "Si vous tenez un contrôle budgétaire, n'oubliez pas les prévisions\n"
                           "de l'exercice suivant avant de clore l'exercice en cours."));
        Decharger();
        return;
    }
    if (resultat.estNul() && dateFin == dateSaisie) {
        cloture::AjouterSectionsSuivant(cle, suivante);
        if (Question(QStringLiteral("Vous avez fait un transfert définitif des soldes de "
                                    "l’exercice\nen cours sur l’exercice suivant.\n\n"
                                    "Voulez-vous clore l’exercice en cours ?"))) {
            LireConstante(cle, k);
            k.ExerciceClos = true;
            MajConstante(cle, k);
            Information(QStringLiteral("Votre exercice en cours est clos."));
        }
        Information(rappel);
        Decharger();
        return;
    }
    // Équilibré, mais un résultat reste ou la date n'est pas le dernier jour : le rappel seul.
    Information(rappel);
}

void Cloture::Decharger() {
    Retour();
    QCoreApplication::processEvents();
}

void Cloture::Command3_Click() {
    Quitter();
}

void Cloture::Command4_Click() {
    MontrerAide();
}

} // namespace ecran
