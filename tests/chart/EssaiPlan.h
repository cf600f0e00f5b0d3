#pragma once
// Exercice d'essai des écrans du plan et de la consultation : société 1, exercice 2024,
// tables livrées (filtre, PlanType), maroval.ini livré ; écritures passées par le vrai
// moteur ; et une garde qui ferme toute boîte venue sans réponse prévue (le test échoue
// au lieu de rester bloqué).

#include "support/DossierEssai.h"

#include "posting/Filtre.h"
#include "posting/PasserEcriture.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QPointer>
#include <QRadioButton>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <memory>

namespace essai {

inline const QString Cle = QStringLiteral("012024");

inline Montant Euros(double v) {
    return Montant::depuisDouble(v);
}

// Session sur la société 1, exercice 2024, maroval.ini livré et base du dossier ouverte
// (créée aux tables livrées si elle n'y est pas).
inline void OuvrirSession(const QString& dossier,
                          const QString& debut = QStringLiteral("20240101")) {
    FermerBase();
    Session& s = session();
    s = Session();
    s.DossierDonnees = dossier;
    s.DossierProgramme = dossier;
    s.NumSocCourante = 1;
    s.ExerciceCourant = 2024;
    s.NomSocCourante = QStringLiteral("Boulangerie Léa");
    s.DateSaisieCourante = QStringLiteral("15/03/2024");
    s.MonnaieExercice = QStringLiteral("E");
    s.NomsMois = {"Janvier", "Février", "Mars",      "Avril",   "Mai",      "Juin",
                  "Juillet", "Août",    "Septembre", "Octobre", "Novembre", "Décembre"};
    s.MoisDebutExercice = CalculMoisDebutExercice(debut);
    MajFormatMontant(2);
    const QString ini = dossier + QStringLiteral("/maroval.ini");
    if (!QFile::exists(ini)) {
        QFile::copy(QStringLiteral(":/data/maroval.ini"), ini);
        QFile::setPermissions(ini, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    OuvrirBase(dossier);
}

// Copie la base (fermée) et maroval.ini d'un dossier dans un autre : des livres préparés une
// fois servent à plusieurs essais.
inline void CopierDonnees(const QString& depuis, const QString& vers) {
    for (const QString& nom : {QStringLiteral("maroval.mdb"), QStringLiteral("maroval.ini")}) {
        QFile::remove(vers + u'/' + nom);
        QFile::copy(depuis + u'/' + nom, vers + u'/' + nom);
        QFile::setPermissions(vers + u'/' + nom, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
}

// La même session sur une base neuve : la société 1 et son exercice 2024 (du 1er janvier
// au 31 décembre sauf autre début).
inline void CreerExercice(const QString& dossier, const QString& debut) {
    OuvrirSession(dossier, debut);
    table::Societe soc;
    soc.Nom = session().NomSocCourante;
    AjouterSociete(soc);
    table::Constante k;
    k.CleCon = Cle;
    k.DateDebut = debut;
    k.DateFin = QStringLiteral("20241231");
    k.DateSaisie = QStringLiteral("20240315");
    k.SymboleMon = QStringLiteral("E");
    AjouterConstante(k);
}

// Le tout dans le dossier d'essai. L'exercice de janvier est fait une fois par programme
// d'essai puis copié : une base neuve (schéma et tables livrées) coûte plus que l'essai.
inline void OuvrirExercice(const support::DossierEssai& dossier,
                           const QString& debut = QStringLiteral("20240101")) {
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

inline void Compte(const QString& numero, const QString& libelle) {
    AssurerCompte(Cle, numero, libelle, {}, {});
}

inline table::Compte LireCpt(const QString& numero) {
    table::Compte c;
    LireCompte(Cle, numero, c);
    return c;
}

inline table::Constante Constante() {
    table::Constante k;
    LireConstante(Cle, k);
    return k;
}

inline int Compter(const std::string& sql, const QString& valeur = QString()) {
    SQLite::Statement q(Base(), sql);
    if (!valeur.isNull()) q.bind(1, valeur.toStdString());
    return q.executeStep() ? q.getColumn(0).getInt() : -1;
}

inline bool CompteExiste(const QString& numero) {
    return Compter("SELECT COUNT(*) FROM Compte WHERE CleCpt='012024' AND NumCpt=?", numero) == 1;
}

inline bool BudgetExiste(const QString& numero) {
    return Compter("SELECT COUNT(*) FROM Budget WHERE CleCpt='012024' AND NumBud=?", numero) == 1;
}

// Une ligne de wSaisie comme la saisie la laisse ; montant positif quand le compte grandit
// de son côté naturel (débit pour E1 et E2, crédit pour R1 et R2).
struct LigneEssai {
    QString numero, sens;
    Montant montant;
    QString libelle = QStringLiteral("Essai");
};

// Passe une écriture équilibrée par le moteur, à la date donnée (JJ/MM/AAAA).
inline void Passer(const QString& date, const QList<LigneEssai>& lignes,
                   const QString& journal = QStringLiteral("D")) {
    session().DateSaisieCourante = date;
    Base().exec("DELETE FROM wSaisie");
    const QString stockee = date.mid(6, 4) + date.mid(3, 2) + date.left(2);
    for (const LigneEssai& l : lignes) {
        const table::Compte c = LireCpt(l.numero);
        table::Saisie s;
        s.wDateEcr = stockee;
        s.wDatePiece = stockee;
        s.wNumCpt = l.numero;
        s.wErEcr = c.ErCpt;
        s.wLibCpt = c.LibCpt;
        s.wSolde = c.Solde;
        s.wTiers = c.Tiers;
        s.wBilan = c.Bilan;
        s.wMenu = c.Menu;
        s.wLibEcr = l.libelle;
        const bool debitNaturel = c.ErCpt.startsWith(u'E');
        s.wMntEcr = (l.sens == QLatin1String("D")) == debitNaturel ? l.montant : -l.montant;
        s.wDCEcr = l.sens;
        s.wJournal = journal;
        s.wMenuLigne = QStringLiteral("411");
        AjouterSaisie(s);
    }
    PasserEcriture(QString::number(Constante().LastNumEcrit + 1), QStringLiteral("E"));
    Base().exec("DELETE FROM wSaisie");
}

// Ecran montré et actif (le focus et le clavier vont à lui), sans exec().
template <class E> std::unique_ptr<E> MontrerEcran() {
    auto e = std::make_unique<E>();
    e->show();
    e->activateWindow();
    if (!QTest::qWaitForWindowActive(e.get())) qWarning("fenêtre inactive");
    return e;
}

// Clic sur le rond d'une option : le centre d'une option étirée par la mise en page tombe
// hors de la zone qui réagit.
inline void CliquerOption(QWidget* racine, const char* nom) {
    auto* option = racine->findChild<QRadioButton*>(QString::fromLatin1(nom));
    QVERIFY2(option, nom);
    QTest::mouseClick(option, Qt::LeftButton, Qt::NoModifier, QPoint(6, option->height() / 2));
}

inline QStringList TextesBoites() {
    QStringList textes;
    for (const ui::EntreeJournal& e : ui::JournalBoites())
        textes << e.texte;
    return textes;
}

inline QByteArray LireFichier(const QString& chemin) {
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<absent>");
}

// Ferme une boîte montrée pour de vrai (aucune réponse prévue) et la note : le test le
// vérifie à la fin au lieu de rester bloqué.
class GardeBoites : public QObject {
public:
    GardeBoites() {
        minuterie.setInterval(100);
        QObject::connect(&minuterie, &QTimer::timeout, [this] {
            auto* boite = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!boite || boite->objectName() != QLatin1String("Boite")) return;
            inattendues << boite->text();
            boite->reject();
        });
        minuterie.start();
    }
    QStringList inattendues;

private:
    QTimer minuterie;
};

// Le cadre commun des essais d'écrans : dossier neuf, exercice ouvert, garde des boîtes ; à
// la fin, aucune boîte venue sans réponse et aucune réponse laissée.
struct CadreEssai {
    std::unique_ptr<support::DossierEssai> dossier;
    std::unique_ptr<GardeBoites> garde;

    void Ouvrir() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirExercice(*dossier);
        garde = std::make_unique<GardeBoites>();
    }
    // Les écrans de l'essai sont déjà détruits.
    void Fermer() {
        const QStringList inattendues = garde ? garde->inattendues : QStringList();
        const int reponses = ui::ReponsesEnAttente();
        garde.reset();
        FermerBase();
        dossier.reset();
        QVERIFY2(inattendues.isEmpty(), qPrintable(inattendues.join(QStringLiteral(" | "))));
        QCOMPARE(reponses, 0);
    }
};

} // namespace essai
