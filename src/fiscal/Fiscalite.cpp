#include "fiscal/Fiscalite.h"

#include "base/Durable.h"
#include "base/Texte.h"
#include "fiscal/DonneesFiscal.h"
#include "reports/Catalogue.h"
#include "reports/DonneesEtats.h"
#include "reports/Impression.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Sablier.h"

#include "ui_Fiscalite.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <memory>

namespace ecran {

namespace {

constexpr int AideFiscalite = 19;

void Information(const QString& texte) {
    ui::Boite(texte, QStringLiteral("Maroval"), ui::Icone::Information);
}

} // namespace

void ConseilFiscal() {
    const QString texte =
        QStringLiteral("Avant de lancer la création de la balance fiscale, il est indispensable\n"
                       "de consulter l'aide sur la gestion de l'édition de vos liasses fiscales\n"
                       "en liaison avec votre cabinet comptable.\n\n"
                       " Voulez-vous consulter cette aide ?");
    if (ui::Boite(texte, QStringLiteral("Attention"), ui::Icone::Question, ui::Boutons::OuiNon,
                  2) == ui::Reponse::Oui)
        ui::AfficherAide(AideFiscalite);
}

Fiscalite::Fiscalite(QWidget* parent) : ui::EcranModal(parent), ui(new Ui::Fiscalite) {
    ui->setupUi(this);
    FixerContexteAide(AideFiscalite);
    ui->Gauge1->hide();
    ui->Label2->setText(session().NomSocCourante + QStringLiteral(" — exercice ") +
                        QString::number(session().ExerciceCourant));
    connect(ui->Command1, &QPushButton::clicked, this, &Fiscalite::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Fiscalite::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Fiscalite::Command3_Click);
}

Fiscalite::~Fiscalite() {
    delete ui;
}

void Fiscalite::Command1_Click() {
    ui::AfficherAide(AideFiscalite);
}

void Fiscalite::Command2_Click() {
    Quitter();
}

void Fiscalite::Command3_Click() {
    const QString cle = CleCourante();
    table::Constante k;
    LireConstante(cle, k);
    if (k.SDE1 != k.SDR1) {
        Information(QStringLiteral("Votre bilan d'ouverture n'est pas équilibré. Vous ne pouvez "
                                   "pas créer la balance fiscale."));
        return;
    }
    if (DateVersBase(session().DateSaisieCourante) < k.DateFin.trimmed() &&
        ui::Boite(QStringLiteral("Vous n'êtes pas en fin d'exercice.\n\nVoulez-vous continuer ?"),
                  QStringLiteral("AVERTISSEMENT"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui)
        return;

    fiscal::ViderFiscal();
    {
        ui->Gauge1->setRange(0, std::max(1, fiscal::NombreComptes(cle)));
        ui->Gauge1->setValue(0);
        ui->Gauge1->show();
        ui::Sablier sablier;
        const auto cacher = [this] { ui->Gauge1->hide(); };
        if (fiscal::ResultatsNonSoldes(cle)) {
            cacher();
            ui::Boite(QStringLiteral("Le solde des comptes de résultat (120 à 129) n'est pas "
                                     "égal à zéro. Il faut soit affecter\n"
                                     "le résultat antérieur sur un autre compte, soit annuler "
                                     "par contre-passation automatique\n"
                                     "le résultat de l'exercice en cours si ce résultat a été "
                                     "déjà été enregistré avant de créer\n"
                                     "la balance fiscale. (Voir l'Aide du menu Fiscalité)"),
                      QStringLiteral("Maroval"), ui::Icone::Exclamation);
            return;
        }
        fiscal::RemplirFiscal(cle, [this](int n) {
            ui->Gauge1->setValue(n);
            if (n % 50 == 0) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
        cacher();
    }

    LireConstante(cle, k);
    if (!fiscal::LivresEnOrdre(fiscal::Sommer(etats::LireFiscal()), k.Resultat)) {
        ui::Boite(QStringLiteral("La création de votre balance fiscale a détecté une anomalie "
                                 "dans votre comptabilité.\n\nConseil : Repartez d'une "
                                 "sauvegarde récente de votre comptabilité et recommencez."),
                  QStringLiteral("Maroval"), ui::Icone::Critique);
        return;
    }
    EnregistrerLiaison();
    ImprimerBalanceFisc();
}

void Fiscalite::EnregistrerLiaison() {
    QString erreur;
    const QByteArray contenu =
        fiscal::FichierLiaison(etats::LireFiscal(), fiscal::SigneDecimal(), &erreur);
    if (contenu.isEmpty()) {
        ui::Boite(erreur, QStringLiteral("Maroval"), ui::Icone::Critique);
        return;
    }
    const QString temporaire =
        QDir(session().DossierDonnees).filePath(QStringLiteral("balfisc.tmp"));
    const auto impossible = [](const QString& chemin) {
        ui::Boite(QStringLiteral("Impossible de créer le fichier ") +
                      QDir::toNativeSeparators(chemin),
                  QStringLiteral("Maroval"), ui::Icone::Critique);
    };
    if (!EcrireFichierEntier(temporaire, contenu)) {
        impossible(temporaire);
        return;
    }
    const QString cible = ui::ChoisirFichierEnregistrer(
        QStringLiteral("Enregistrer la balance fiscale"),
        fiscal::NomParDefaut(session().NomSocCourante, session().ExerciceCourant),
        QStringLiteral("Texte (*.txt)|*.txt"), DossierDisquette());
    if (cible.isEmpty()) {
        Information(QStringLiteral("La balance fiscale n'a pas été sauvegardée."));
    } else {
        // Le fichier choisi est remplacé en entier ou pas du tout, depuis la copie temporaire.
        QFile copie(temporaire);
        if (copie.open(QIODevice::ReadOnly) && EcrireFichierEntier(cible, copie.readAll()))
            Information(QStringLiteral("Le fichier ") + QDir::toNativeSeparators(cible) +
                        QStringLiteral(" a été créé !"));
        else
            impossible(cible);
    }
    QFile::remove(temporaire);
}

void Fiscalite::ImprimerBalanceFisc() {
    rapport::ImprimerOuEnregistrer(rapport::EtatBalanceFisc(), ui->CBPdf->isChecked());
}

} // namespace ecran
