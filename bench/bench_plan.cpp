// Mesures : copie de la totalité du plan standard le plus long par l'écran du plan, et
// consultation d'un compte de 20 000 lignes (toutes ses écritures, liste remplie et peinte).

#include "Generateur.h"
#include "chart/GestionPlan.h"
#include "chart/Plan2.h"
#include "consultation/ConsCpt.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Grille.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>

namespace {

const QString Cle = QStringLiteral("012024");

void OuvrirExercice(const QString& dossier) {
    Session& s = session();
    s.DossierDonnees = dossier;
    s.NumSocCourante = 1;
    s.ExerciceCourant = 2024;
    s.DateSaisieCourante = QStringLiteral("15/03/2024");
    s.MonnaieExercice = QStringLiteral("E");
    s.MoisDebutExercice = 10;
    MajFormatMontant(2);
    QFile::copy(QStringLiteral(":/data/maroval.ini"), dossier + QStringLiteral("/maroval.ini"));
    QFile::setPermissions(dossier + QStringLiteral("/maroval.ini"),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    OuvrirBase(dossier);
    table::Societe soc;
    soc.Nom = QStringLiteral("Mesures");
    AjouterSociete(soc);
    table::Constante k;
    k.CleCon = Cle;
    k.DateDebut = QStringLiteral("20240101");
    k.DateFin = QStringLiteral("20241231");
    k.SymboleMon = QStringLiteral("E");
    AjouterConstante(k);
}

// Rang (dans la liste des plans) du plan type qui a le plus de comptes.
int PlanLePlusLong(QListWidget* plans, int& comptes) {
    int rang = 0;
    comptes = 0;
    for (int i = 0; i < plans->count(); ++i) {
        SQLite::Statement q(Base(), "SELECT COUNT(*) FROM PlanType WHERE NumPlan=?");
        q.bind(1, plans->item(i)->data(Qt::UserRole).toString().toStdString());
        q.executeStep();
        if (q.getColumn(0).getInt() > comptes) {
            comptes = q.getColumn(0).getInt();
            rang = i;
        }
    }
    return rang;
}

double MesurerCopiePlan() {
    ecran::Plan2 plan;
    plan.show();
    auto* plans = plan.findChild<QListWidget*>(QStringLiteral("List1"));
    int comptes = 0;
    plans->setCurrentRow(PlanLePlusLong(plans, comptes));
    ui::RepondreBoite(ui::Reponse::Oui);
    QElapsedTimer chrono;
    chrono.start();
    plan.Command1_Click();
    QCoreApplication::processEvents();
    const double ms = static_cast<double>(chrono.nsecsElapsed()) / 1e6;
    std::printf("Copie de la totalité du plan \"%s\" (%d comptes) : %.1f ms\n",
                qPrintable(plans->currentItem()->text()), comptes, ms);
    // Seconde copie : rien à ajouter.
    ui::RepondreBoite(ui::Reponse::Oui);
    chrono.restart();
    plan.Command1_Click();
    std::printf("Seconde copie (rien d'ajouté) : %.1f ms\n",
                static_cast<double>(chrono.nsecsElapsed()) / 1e6);
    plan.Command4_Click();
    return ms;
}

// Compte qui a le plus de lignes dans l'exercice ouvert, et leur nombre.
QString CompteLePlusCharge(int& lignes) {
    SQLite::Statement q(Base(), "SELECT NumCptEcr, COUNT(*) FROM Ecriture WHERE CleCpt=? "
                                "GROUP BY NumCptEcr ORDER BY 2 DESC LIMIT 1");
    q.bind(1, CleCourante().toStdString());
    lignes = q.executeStep() ? q.getColumn(1).getInt() : 0;
    return lignes ? QString::fromUtf8(q.getColumn(0).getText()).trimmed() : QString();
}

double MesurerConsultation(const QString& compte, int nombre) {
    QElapsedTimer chrono;
    chrono.start();
    ecran::ConsCpt ecran;
    ecran.resize(1000, 620);
    ecran.show();
    QCoreApplication::processEvents();
    auto* texte = ecran.findChild<QLineEdit*>(QStringLiteral("Text1"));
    texte->setText(compte);
    ecran.Text1_Change();
    ecran.Text1_KeyPress();
    ecran.Command1_Click();
    auto* lignes = ecran.findChild<ui::Grille*>(QStringLiteral("Tree2"));
    ecran.repaint();
    QCoreApplication::processEvents();
    const double ms = static_cast<double>(chrono.nsecsElapsed()) / 1e6;
    std::printf("Consultation d'un compte de %d lignes (ouverture, choix, toutes les écritures, "
                "peinture) : %.1f ms, %d lignes montrées\n",
                nombre, ms, lignes->NombreLignes());
    chrono.restart();
    ecran.Command5_Click();
    texte->setText(compte);
    ecran.Text1_Change();
    ecran.findChild<QListWidget*>(QStringLiteral("LB_Mois"))->setCurrentRow(11);
    ecran.Command3_Click();
    ecran.repaint();
    QCoreApplication::processEvents();
    std::printf("Lignes de décembre seules : %.1f ms, %d lignes\n",
                static_cast<double>(chrono.nsecsElapsed()) / 1e6, lignes->NombreLignes());
    return ms;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ui::Application application(argc, argv);
    QTemporaryDir dossier;
    qputenv("MAROVAL_DONNEES", QFile::encodeName(dossier.path()));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dossier.path());
    ui::FixerModeEssai(true);
    OuvrirExercice(dossier.path());

    MesurerCopiePlan();
    FermerBase();

    // Une comptabilité générée, passée écriture par écriture comme la saisie le fait ; la
    // banque y reçoit environ une ligne sur six, soit 20 000 lignes.
    generateur::Options options;
    options.dossier = dossier.filePath(QStringLiteral("genere"));
    options.lignesVisees = 118000;
    const generateur::Resultat r = generateur::Generer(options);
    generateur::OuvrirGenere(options.dossier);
    int nombre = 0;
    const QString compte = CompteLePlusCharge(nombre);
    std::printf("Base générée : %d lignes en %.1f s ; compte %s : %d lignes\n", r.lignes,
                r.secondes, qPrintable(compte), nombre);
    const double consultation = MesurerConsultation(compte, nombre);
    std::printf("Consultation sous une seconde : %s\n", consultation < 1000 ? "oui" : "NON");
    FermerBase();
    return 0;
}
