#include "support/ExerciceEssai.h"

#include "support/LivresEssai.h"

#include "posting/Filtre.h"
#include "posting/PasserEcriture.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QFile>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

namespace essai {

void OuvrirSession(const QString& dossier, const QString& debut) {
    FermerBase();
    NouvelleSession(dossier);
    SessionExercice(QStringLiteral("Boulangerie Léa"), QStringLiteral("15/03/2024"));
    session().MoisDebutExercice = CalculMoisDebutExercice(debut);
    OuvrirDossier(dossier);
}

void CopierDonnees(const QString& depuis, const QString& vers) {
    for (const QString& nom : {QStringLiteral("maroval.mdb"), QStringLiteral("maroval.ini")}) {
        QFile::remove(vers + u'/' + nom);
        QFile::copy(depuis + u'/' + nom, vers + u'/' + nom);
        QFile::setPermissions(vers + u'/' + nom, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
}

void CreerExercice(const QString& dossier, const QString& debut) {
    OuvrirSession(dossier, debut);
    CreerExerciceEssai(debut, QStringLiteral("20240315"));
}

void OuvrirExercice(const support::DossierEssai& dossier, const QString& debut) {
    if (debut != QLatin1String("20240101")) return CreerExercice(dossier.Chemin(), debut);
    static QTemporaryDir modele;
    static bool pret = false;
    if (!pret) {
        CreerExercice(modele.path(), debut);
        FermerBase();
        pret = true;
    }
    FermerBase();
    CopierDonnees(modele.path(), dossier.Chemin());
    OuvrirSession(dossier.Chemin(), debut);
}

void Compte(const QString& numero, const QString& libelle) {
    AssurerCompte(Cle, numero, libelle, {}, {});
}

bool CompteExiste(const QString& numero) {
    return Compter("SELECT COUNT(*) FROM Compte WHERE CleCpt='012024' AND NumCpt=?", numero) == 1;
}

bool BudgetExiste(const QString& numero) {
    return Compter("SELECT COUNT(*) FROM Budget WHERE CleCpt='012024' AND NumBud=?", numero) == 1;
}

void Passer(const QString& date, const QList<LigneEssai>& lignes, const QString& journal) {
    session().DateSaisieCourante = date;
    Base().exec("DELETE FROM wSaisie");
    const QString stockee = date.mid(6, 4) + date.mid(3, 2) + date.left(2);
    for (const LigneEssai& l : lignes) {
        table::Saisie s = LigneDuCompte(l.numero, l.sens, l.montant, journal, stockee, l.libelle,
                                        QStringLiteral("411"));
        AjouterSaisie(s);
    }
    PasserEcriture(QString::number(Constante().LastNumEcrit + 1), QStringLiteral("E"));
    Base().exec("DELETE FROM wSaisie");
}

void CliquerOption(QWidget* racine, const char* nom) {
    auto* option = racine->findChild<QRadioButton*>(QString::fromLatin1(nom));
    QVERIFY2(option, nom);
    QTest::mouseClick(option, Qt::LeftButton, Qt::NoModifier, QPoint(6, option->height() / 2));
}

void CadreEssai::Ouvrir(bool avecExercice) {
    dossier = std::make_unique<support::DossierEssai>();
    if (avecExercice) OuvrirExercice(*dossier);
    garde = std::make_unique<GardeBoites>();
}

void CadreEssai::Fermer() {
    const QStringList inattendues = garde ? garde->inattendues : QStringList();
    const int reponses = ui::ReponsesEnAttente();
    garde.reset();
    FermerBase();
    dossier.reset();
    QVERIFY2(inattendues.isEmpty(), qPrintable(inattendues.join(QStringLiteral(" | "))));
    QCOMPARE(reponses, 0);
}

} // namespace essai
