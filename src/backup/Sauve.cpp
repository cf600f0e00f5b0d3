#include "backup/Sauve.h"

#include "backup/Disquette.h"
#include "session/Session.h"
#include "store/BaseSauve.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui/Horloge.h"
#include "ui/Sablier.h"

#include "ui_Sauve.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>

namespace ecran {

namespace {

int delaiCompression = 120000;

QString Dossier() {
    return session().DossierDonnees;
}

QString Fichier(const char* nom) {
    return QDir(Dossier()).filePath(QString::fromLatin1(nom));
}

// AAAAMMJJHHMMSS -> JJ/MM/AAAA HH:MM:SS
QString DateLisible(const QString& d) {
    return d.mid(6, 2) + QLatin1Char('/') + d.mid(4, 2) + QLatin1Char('/') + d.left(4) +
           QLatin1Char(' ') + d.mid(8, 2) + QLatin1Char(':') + d.mid(10, 2) + QLatin1Char(':') +
           d.mid(12, 2);
}

bool Question(const QString& texte, const QString& titre = QStringLiteral("Maroval")) {
    return ui::Boite(texte, titre, ui::Icone::Question, ui::Boutons::OuiNon) == ui::Reponse::Oui;
}

} // namespace

void Sauve::FixerDelaiCompression(int millisecondes) {
    delaiCompression = millisecondes;
}

Sauve::Sauve(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Sauve>()) {
    FixerContexteAide(21);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes(
        {QStringLiteral("Date"), QStringLiteral("Disquette"), QStringLiteral("Dernière écriture")});
    ui->Tree1->FixerLargeurColonne(0, 200);
    ui->Tree1->FixerLargeurColonne(1, 100);
    ui->Tree1->FixerLargeurColonne(2, 160);
    ui->Tree1->FixerTriDates(0);
    ui->Gauge1->setRange(0, 10);
    connect(ui->SSCommand1, &QPushButton::clicked, this, &Sauve::SSCommand1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Sauve::Command2_Click);
    Form_Load();
}

Sauve::~Sauve() = default;

void Sauve::Form_Load() {
    const Session& s = session();
    ui->Label1->setText(s.NomSocCourante);
    ui->Label2->setText(QStringLiteral("Exercice ") + QString::number(s.ExerciceCourant) +
                        QStringLiteral(" — dossier de la disquette : ") +
                        QDir::toNativeSeparators(DossierDisquette()));
    ui->SSCommand1->setEnabled(s.SauvegardeAutorisee);
    ui->Tree1->Vider();
    const std::vector<disquette::Sauvegarde> faites =
        disquette::Sauvegardes(s.NumSocCourante, s.ExerciceCourant);
    QString derniere;
    for (const disquette::Sauvegarde& f : faites) {
        ui->Tree1->AjouterLigne({DateLisible(f.date), QString::number(f.numDisk),
                                 QString::number(f.lastNumEcrit, 'f', 0)});
        if (f.date > derniere) derniere = f.date;
    }
    disque = disquette::DisqueSuivant(faites);
    ui->Label3->setText(QStringLiteral("La disquette numéro %1 est celle à utiliser pour cette "
                                       "sauvegarde.")
                            .arg(disque));
    ui->Label7->setText(derniere.isEmpty() ? QStringLiteral("Aucune") : DateLisible(derniere));
}

void Sauve::Echec(const QString& texte, const QString& titre) {
    ui->Gauge1->setValue(0);
    ui::Boite(texte, titre, ui::Icone::Critique);
}

void Sauve::SSCommand1_Click() {
    const Session& s = session();
    if (!Question(QStringLiteral("Insérez une disquette portant le numéro %1 dans le lecteur "
                                 "A:\n\net cliquez sur Oui quand vous êtes prêt.")
                      .arg(disque),
                  QStringLiteral("SAUVEGARDE")))
        return;
    const QFileInfo lecteur(DossierDisquette());
    if (!lecteur.isDir() || !lecteur.isReadable()) {
        ui::Boite(QStringLiteral("Il n'y a pas de disquette dans le lecteur ou elle n'est pas "
                                 "formatée !"),
                  QStringLiteral("Maroval"), ui::Icone::Critique);
        return;
    }
    if (disquette::EtiquettePresente()) {
        const disquette::Etiquette e = disquette::LireEtiquetteDisquette();
        if ((e.societe != QString::number(s.NumSocCourante) ||
             e.exercice != QString::number(s.ExerciceCourant) ||
             e.numDisk != QString::number(disque)) &&
            !Question(QStringLiteral("Cette disquette n'est pas la disquette attendue, "
                                     "voulez-vous continuer tout de même ?")))
            return;
    }
    if (!disquette::FichiersDisquette().isEmpty()) {
        if (!Question(QStringLiteral("Votre disquette contient déjà des données \nSouhaitez-vous "
                                     "les écraser ?"),
                      QStringLiteral("Confirmation")))
            return;
        if (!lecteur.isWritable()) {
            Echec(QStringLiteral("Attention, votre disquette est protégée contre "
                                 "l'effacement.\nVeuillez recommencer."));
            return;
        }
        if (!disquette::ViderDisquette()) {
            Echec(QStringLiteral("Une erreur s'est produite lors de la purge de votre "
                                 "disquette.\nLe mieux serait sûrement d'en prendre une autre !"));
            return;
        }
    }
    const QString ecritureImpossible =
        QStringLiteral("Erreur lors de l'écriture sur la disquette, Vérifiez qu'elle ne soit pas "
                       "protégée contre l'écriture");
    table::Constante k;
    LireConstante(CleCourante(), k);
    const QDateTime maintenant = ui::Maintenant();
    if (!disquette::EcrireEtiquette(disque, k.LastNumEcrit,
                                    maintenant.toString(QStringLiteral("yyyyMMddhhmm")))) {
        Echec(ecritureImpossible);
        return;
    }
    try {
        disquette::NoterSauvegarde(s.NumSocCourante, s.ExerciceCourant, disque, k.LastNumEcrit,
                                   maintenant.toString(QStringLiteral("yyyyMMddhhmmss")));
    } catch (const std::exception&) {
        Echec(QStringLiteral("La sauvegarde n'a pu s'effectuer. Fermez Maroval, Relancez et "
                             "recommencez"),
              QStringLiteral("Attention"));
        return;
    }
    const QString perdue = QStringLiteral(
        "Une erreur s'est produite pendant la sauvegarde sur disquette\nVérifiez la présence de "
        "la disquette\nou le cas échéant, otez la protection\nPuis recommencez la sauvegarde");
    ui->Gauge1->setValue(0);
    bool copie = false;
    {
        ui::Sablier sablier;
        copie = disquette::CopierExercice(s.NumSocCourante, s.ExerciceCourant, [this](int n) {
            ui->Gauge1->setValue(n);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
    }
    if (!copie || !Compresser() ||
        !QFile::copy(Fichier("sauve.md_"), QDir(DossierDisquette()).filePath("sauve.md_"))) {
        disquette::RetirerSauvegarde(s.NumSocCourante, s.ExerciceCourant, disque);
        Echec(perdue);
        return;
    }
    QFile::remove(Fichier("sauve.mdb"));
    QFile::remove(Fichier("sauve.md_"));
    ui->Gauge1->setValue(0);
    ui::Boite(QStringLiteral("La sauvegarde s'est effectuée correctement."),
              QStringLiteral("Maroval"), ui::Icone::Information);
    Form_Load();
}

bool Sauve::Compresser() {
    const QString journal = Fichier("sauve.log");
    QFile::remove(journal);
    // Un autre processus compresse ; seule l'apparition de sauve.log dit qu'il a fini.
    if (!QProcess::startDetached(QStringLiteral("/bin/sh"), {disquette::ScriptSauvegarde(),
                                                             disquette::Compresseur(), Dossier()}))
        return false;
    QEventLoop attente;
    QTimer Timer1;
    QElapsedTimer chrono;
    chrono.start();
    Timer1.setInterval(100);
    connect(&Timer1, &QTimer::timeout, &attente, [&] {
        ui->Gauge1->setValue(std::min(10, 9 + static_cast<int>(chrono.elapsed() / 60000)));
        if (QFile::exists(journal) || chrono.elapsed() > delaiCompression) attente.quit();
    });
    Timer1.start();
    attente.exec(QEventLoop::ExcludeUserInputEvents);
    QFile f(journal);
    if (!f.open(QIODevice::ReadOnly)) return false;
    const bool reussie = f.readAll().trimmed() == "0";
    f.close();
    QFile::remove(journal);
    return reussie && QFile::exists(Fichier("sauve.md_"));
}

void Sauve::Command2_Click() {
    Quitter();
}

} // namespace ecran
