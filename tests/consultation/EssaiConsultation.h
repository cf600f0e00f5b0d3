#pragma once
// Aides communes aux essais des écrans de consultation : un modèle de livres passé une fois
// puis copié pour chaque essai, l'ouverture d'un écran et la lecture de ses grilles.

#include "support/ExerciceEssai.h"
#include "support/PiloteModal.h"

#include "chart/GestionPlan.h"
#include "chart/Ouverture.h"
#include "consultation/Export.h"
#include "posting/Verification.h"
#include "ui/Grille.h"

#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <functional>
#include <memory>

namespace essai {

inline QString T(const char* texte) {
    return QString::fromUtf8(texte);
}

// Livres préparés une fois (dans initTestCase) puis copiés dans le dossier de chaque essai.
class BancConsultation {
public:
    void Preparer(const std::function<void()>& livres) {
        modele = std::make_unique<support::DossierEssai>();
        OuvrirExercice(*modele);
        AssurerComptesFixes(Cle);
        livres();
        FermerBase();
    }
    void Liberer() { modele.reset(); }
    void Debut() {
        dossier = std::make_unique<support::DossierEssai>();
        CopierDonnees(modele->Chemin(), dossier->Chemin());
        OuvrirSession(dossier->Chemin());
        QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
        FixerApplicationAssociee(true);
        garde = std::make_unique<GardeBoites>();
    }
    // Rend les boîtes fermées faute de réponse prévue (liste vide si tout était prévu).
    QStringList Fin() {
        const QStringList inattendues = garde->inattendues;
        garde.reset();
        ui::OublierReponsesBoite();
        FixerApplicationAssociee(std::nullopt);
        QLocale::setDefault(QLocale::c());
        FermerBase();
        dossier.reset();
        return inattendues;
    }
    QString Fichier(const QString& nom) const { return dossier->Fichier(nom); }

private:
    std::unique_ptr<support::DossierEssai> modele, dossier;
    std::unique_ptr<GardeBoites> garde;
};

// Solde d'ouverture d'un compte (hors clients et fournisseurs), avec les totaux d'ouverture.
inline void Ouvrir(const QString& numero, Montant montant) {
    MajSoldeOuverture(numero, montant);
    MajCumulsOuverture(numero, Montant(), montant);
}

// Une boutique : capital 1 000 en banque ; deux clients dont l'un a trop payé (solde
// créditeur 30) ; un fournisseur payé 50 de trop (solde débiteur) ; une caisse et des ventes
// annexes dont les mouvements s'annulent ; achats 200, ventes 170 : perte de 30.
inline void LivresBoutique() {
    Compte("512", "Banque");
    Compte("101", "Capital");
    Compte("530", "Caisse");
    Compte("411001", "Client Dupont");
    Compte("411002", QString::fromUtf8("Client Léon"));
    Compte("401001", "Moulin Martin");
    Compte("607", "Achats");
    Compte("707", "Ventes");
    Compte("708", "Ventes annexes");
    Ouvrir("512", Euros(1000));
    Ouvrir("101", Euros(1000));
    Passer("10/01/2024", {{"411001", "D", Euros(120)}, {"707", "C", Euros(120)}}, "V");
    Passer("12/01/2024", {{"411002", "D", Euros(50)}, {"707", "C", Euros(50)}}, "V");
    Passer("20/01/2024", {{"512", "D", Euros(80)}, {"411002", "C", Euros(80)}}, "T");
    Passer("01/02/2024", {{"607", "D", Euros(200)}, {"401001", "C", Euros(200)}}, "A");
    Passer("05/02/2024", {{"401001", "D", Euros(250)}, {"512", "C", Euros(250)}}, "T");
    Passer("10/02/2024", {{"530", "D", Euros(40)}, {"512", "C", Euros(40)}}, "T");
    Passer("11/02/2024", {{"512", "D", Euros(40)}, {"530", "C", Euros(40)}}, "T");
    Passer("15/02/2024", {{"512", "D", Euros(10)}, {"708", "C", Euros(10)}}, "V");
    Passer("16/02/2024", {{"708", "D", Euros(10)}, {"512", "C", Euros(10)}}, "V");
}

inline ui::Grille* Grille(QWidget* e, const char* nom) {
    return e->findChild<ui::Grille*>(QString::fromLatin1(nom));
}
inline QString Texte(QWidget* e, const char* nom) {
    auto* l = e->findChild<QLabel*>(QString::fromLatin1(nom));
    return l ? l->text() : QStringLiteral("<absent>");
}
inline QStringList Ligne(ui::Grille* g, int i) {
    QStringList l;
    for (int c = 0; c < g->NombreColonnes(); ++c)
        l << g->Texte(i, c);
    return l;
}
inline QStringList Titres(ui::Grille* g) {
    QStringList l;
    for (int c = 0; c < g->NombreColonnes(); ++c)
        l << g->Titre(c);
    return l;
}
inline QList<QStringList> Lignes(ui::Grille* g) {
    QList<QStringList> l;
    for (int i = 0; i < g->NombreLignes(); ++i)
        l << Ligne(g, i);
    return l;
}

// Sur l'écran Balance : choisit tour à tour les trois balances et compare la ligne des totaux
// à ceux de la vérification des livres ; rend les écarts (vide si aucun).
inline QString EcartsTotauxBalance(QWidget* balance) {
    const auto aff = [](Montant m) { return FormaterMontant(m, session().FormatMontant); };
    const QList<QPair<const char*, const char*>> choix = {
        {"BRCompl", "G"}, {"BRClient", "C"}, {"BRFourn", "F"}};
    QString ecarts;
    for (const auto& [option, lettre] : choix) {
        CliquerOption(balance, option);
        Montant d, c, sd, sc;
        TotauxBalance(QString::fromLatin1(lettre), d, c, sd, sc);
        const QStringList vus = Ligne(Grille(balance, "Tree2"), 0).mid(3);
        const QStringList attendus = {aff(d), aff(c), aff(sd), aff(sc)};
        if (vus != attendus)
            ecarts += QString::fromLatin1(option) + QStringLiteral(" : ") + vus.join(u'/') +
                      QStringLiteral(" au lieu de ") + attendus.join(u'/') + QLatin1Char(' ');
    }
    return ecarts;
}

// Export par ce bouton vers ce fichier ; la question de fin reçoit Non.
inline void Exporter(QWidget* e, const char* bouton, const QString& chemin) {
    ui::RepondreFichier(chemin);
    ui::RepondreBoite(ui::Reponse::Non);
    support::CliquerBouton(e, QString::fromLatin1(bouton));
}

inline const QByteArray Bom("\xEF\xBB\xBF");

} // namespace essai
