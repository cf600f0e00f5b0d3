#include "backup/Restaure.h"

#include "backup/Disquette.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/BaseSauve.h"
#include "ui/Boite.h"
#include "ui/Sablier.h"

#include "ui_Restaure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace ecran {

namespace {

void Information(const QString& texte, const QString& titre = QStringLiteral("Maroval")) {
    ui::Boite(texte, titre, ui::Icone::Information);
}

void Critique(const QString& texte, const QString& titre = QStringLiteral("Maroval")) {
    ui::Boite(texte, titre, ui::Icone::Critique);
}

} // namespace

Restaure::Restaure(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Restaure>()) {
    FixerContexteAide(21);
    ui->setupUi(this);
    ui->Label2->setText(QStringLiteral("Dossier de la disquette : ") +
                        QDir::toNativeSeparators(DossierDisquette()));
    connect(ui->Command1, &QPushButton::clicked, this, &Restaure::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Restaure::Command2_Click);
}

Restaure::~Restaure() = default;

void Restaure::Command1_Click() {
    ui::Boite(QStringLiteral("Insérez une disquette de sauvegarde d'une comptabilité Maroval dans "
                             "le lecteur A:\net cliquez sur Ok quand vous êtes prêt"),
              QStringLiteral("Maroval"), ui::Icone::Information);
    if (!disquette::TesterDisquette()) {
        Critique(QStringLiteral("Cette disquette semble n'être pas formattée ou protégée en "
                                "écriture.\nVérifiez et recommencez"));
        return;
    }
    const QFileInfo lecteur(DossierDisquette());
    if (!lecteur.isDir() || !lecteur.isReadable()) {
        Critique(QStringLiteral("Il n'y a pas de disquette dans le lecteur !"),
                 QStringLiteral("Problème Maroval"));
        return;
    }
    const disquette::Etiquette e = disquette::LireEtiquetteDisquette();
    if (!disquette::EtiquettePresente() ||
        (e.societe == QLatin1String("*") && e.exercice == QLatin1String("*"))) {
        Critique(QStringLiteral("Cette disquette ne contient pas une sauvegarde d'une comptabilité "
                                "Maroval\nRecommencez !"));
        return;
    }
    const QString d = e.date;
    const QString jour =
        d.mid(6, 2) + QLatin1Char('/') + d.mid(4, 2) + QLatin1Char('/') + d.left(4);
    const QString heure = d.mid(8, 2) + QLatin1Char(':') + d.mid(10, 2);
    if (ui::Boite(QStringLiteral("Vous vous apprêtez à restaurer l'exercice %1 de la société %2 à "
                                 "la situation à laquelle il était au %3 à %4\nLe numéro de la "
                                 "dernière écriture était alors le %5.\nVoulez-vous continuer ?")
                      .arg(e.exercice, e.nomSoc, jour, heure, e.lastNumEcrit),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui)
        return;

    const QString dossier = session().DossierDonnees;
    const QString sauve = CheminBaseSauve(dossier);
    QFile::remove(sauve);
    const QString compresse = QDir(DossierDisquette()).filePath(QStringLiteral("sauve.md_"));
    if (!QFile::exists(compresse)) {
        // Une disquette peut tenir la base telle quelle.
        if (!QFile::copy(QDir(DossierDisquette()).filePath(QStringLiteral("sauve.mdb")), sauve)) {
            Critique(QStringLiteral("Problème à la lecture du fichier A:\\SAUVE.MDB"),
                     QStringLiteral("Attention"));
            return;
        }
        QFile::setPermissions(sauve, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    } else if (!disquette::DecompresserFichier(compresse, sauve)) {
        Critique(QStringLiteral("Problème à la lecture du fichier A:\\SAUVE.MD_"),
                 QStringLiteral("Attention"));
        return;
    }

    disquette::Restauration r;
    {
        ui::Sablier sablier;
        r = disquette::RestaurerExercice();
    }
    QFile::remove(sauve);
    if (r == disquette::Restauration::Existe) {
        Critique(QStringLiteral("Impossible d'effectuer cette restauration :\nVous avez déjà "
                                "restauré cet exercice ou\ncet exercice existe déjà dans votre "
                                "Maroval actuel."));
        return;
    }
    if (r == disquette::Restauration::Erreur) {
        Critique(QStringLiteral("Une erreur s'est produite durant la restauration\nVérifiez l'état "
                                "de votre disquette et recommencez."));
        return;
    }
    // Le plan type choisi pour la société revient dans maroval.ini.
    const QString cle = QStringLiteral("PlanChoisi") + e.societe.trimmed();
    const QString plan =
        FichierProfil(QDir(DossierDisquette()).filePath(QStringLiteral("sauve.ini")))
            .Lire(QStringLiteral("Plans Types"), cle);
    if (!plan.isEmpty())
        FichierProfil(CheminIni()).Ecrire(QStringLiteral("Plans Types"), cle, plan);
    Information(QStringLiteral("La restauration de l'exercice %1 de la société %2 est terminée.")
                    .arg(e.exercice, e.nomSoc));
}

void Restaure::Command2_Click() {
    Quitter();
}

} // namespace ecran
