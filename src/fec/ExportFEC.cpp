#include "fec/ExportFEC.h"

#include "base/Durable.h"
#include "base/Texte.h"
#include "fec/EcritureFec.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Sablier.h"

#include "ui_ExportFEC.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace ecran {

namespace {

constexpr int AideFec = 41;

} // namespace

ExportFEC::ExportFEC(QWidget* parent)
    : ui::EcranModal(parent), ui(std::make_unique<Ui::ExportFEC>()) {
    ui->setupUi(this);
    FixerContexteAide(AideFec);
    table::Constante k;
    LireConstante(CleCourante(), k);
    ui->Label2->setText(session().NomSocCourante + QStringLiteral(" — exercice du ") +
                        DateVersEcran(k.DateDebut.trimmed()) + QStringLiteral(" au ") +
                        DateVersEcran(k.DateFin.trimmed()));
    ui->TextSiren->setText(fec::LireSiren(session().NumSocCourante));
    connect(ui->Command1, &QPushButton::clicked, this, &ExportFEC::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &ExportFEC::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &ExportFEC::Command3_Click);
}

ExportFEC::~ExportFEC() = default;

void ExportFEC::Command1_Click() {
    // Les blancs qu'on tape souvent dans un SIREN (« 732 829 320 ») ne comptent pas.
    const QString siren = SansEspaces(ui->TextSiren->text());
    if (siren.size() != 9 || !std::all_of(siren.begin(), siren.end(), EstChiffre)) {
        ui::Boite(QStringLiteral("Le numéro SIREN doit compter exactement 9 chiffres."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        ui->TextSiren->setFocus();
        return;
    }
    if (!fec::SirenValide(siren)) {
        ui::Boite(QStringLiteral("Ce numéro SIREN n'est pas valide : un chiffre est sans doute "
                                 "mal tapé. Vous le trouverez sur votre extrait Kbis ou votre avis "
                                 "de situation au répertoire Sirene."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        ui->TextSiren->setFocus();
        return;
    }
    fec::EnregistrerSiren(session().NumSocCourante, siren);
    table::Constante k;
    LireConstante(CleCourante(), k);
    fec::Totaux totaux;
    QString erreur;
    QByteArray contenu;
    {
        ui::Sablier sablier;
        contenu = fec::FichierFec(CleCourante(), &totaux, &erreur);
    }
    if (contenu.isEmpty()) {
        ui::Boite(erreur, QStringLiteral("Maroval"), ui::Icone::Critique);
        return;
    }
    const QString chemin = ui::ChoisirFichierEnregistrer(
        QStringLiteral("Enregistrer le fichier des écritures comptables"),
        fec::NomFichier(siren, k.DateFin), QStringLiteral("Texte (*.txt)|*.txt"));
    if (chemin.isEmpty()) return;
    if (!EcrireFichierEntier(chemin, contenu)) {
        ui::Boite(QStringLiteral("Impossible de créer le fichier ") +
                      QDir::toNativeSeparators(chemin),
                  QStringLiteral("Maroval"), ui::Icone::Critique);
        return;
    }
    if (ui::Boite(QStringLiteral("Le fichier %1 a été créé : %2 écritures, %3 lignes, total des "
                                 "débits %4, total des crédits %5.\n\nVoulez-vous ouvrir le "
                                 "dossier qui le contient ?")
                      .arg(QDir::toNativeSeparators(chemin))
                      .arg(totaux.ecritures)
                      .arg(totaux.lignes)
                      .arg(AfficheMontant(totaux.debit), AfficheMontant(totaux.credit)),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) == ui::Reponse::Oui)
        ui::OuvrirFichier(QFileInfo(chemin).absolutePath());
}

void ExportFEC::Command2_Click() {
    Retour();
}

void ExportFEC::Command3_Click() {
    MontrerAide();
}

} // namespace ecran
