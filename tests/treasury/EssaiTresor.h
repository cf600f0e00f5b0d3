#pragma once
// Livres d'essai de la trésorerie : le plan d'essai (clients 411…, fournisseurs 401…, banque
// 512), et des lignes posées directement dans Ecriture quand seul le lettrage compte.
#include "support/LivresEssai.h"

#include "posting/Filtre.h"

#include <SQLiteCpp/Statement.h>

namespace tresor_essai {

using essai::Cle;

inline void Livres(const QString& dossier) {
    essai::NouvelleSession(dossier);
    essai::OuvrirLivres(dossier);
    for (const char* numero : {"411002", "411003"})
        AssurerCompte(Cle, numero, QStringLiteral("Client ") + numero, {}, {});
    AssurerCompte(Cle, "401002", "Fournisseur Leroy", {}, {});
    AssurerCompte(Cle, "5121", "Banque populaire", {}, {});
}

// Une ligne d'écriture du compte, montant signé comme rangé (en euros), sans passer par le
// moteur ; échéance AAAAMMJJ ou "________".
inline void Ligne(const QString& compte, double numero, double euros, int lettrage = 0,
                  const QString& echeance = QStringLiteral("________"), const QString& cle = Cle) {
    SQLite::Statement q(Base(), "INSERT INTO Ecriture (CleCpt, NumEcr, DateEcr, DatePiece, "
                                "NumCptEcr, MntEcr, LibEcr, DCEcr, Journal, Lettrage, "
                                "DateEcheance, MoisEcheance) VALUES (?, ?, '20240315', "
                                "'20240315', ?, ?, ?, ?, 'V', ?, ?, ?)");
    q.bind(1, cle.toStdString());
    q.bind(2, numero);
    q.bind(3, compte.toStdString());
    q.bind(4, static_cast<int64_t>(euros * 10000 + (euros < 0 ? -0.5 : 0.5)));
    q.bind(5, QStringLiteral("Ligne %1").arg(numero).toStdString());
    q.bind(6, euros > 0 ? "D" : "C");
    q.bind(7, lettrage);
    q.bind(8, echeance.toStdString());
    q.bind(9, echeance.startsWith('_') ? std::string("0") : echeance.mid(4, 2).toStdString());
    q.exec();
}

// Solde de début et solde d'un compte posés à la main (en euros).
inline void FixerCompte(const QString& compte, double sde, double solde) {
    SQLite::Statement q(Base(), "UPDATE Compte SET Sde = ?, Solde = ?, CumD = 1 WHERE CleCpt = ? "
                                "AND NumCpt = ?");
    q.bind(1, static_cast<int64_t>(sde * 10000));
    q.bind(2, static_cast<int64_t>(solde * 10000));
    q.bind(3, Cle.toStdString());
    q.bind(4, compte.toStdString());
    q.exec();
}

inline int Lettrage(double numero, const QString& cle = Cle) {
    SQLite::Statement q(Base(), "SELECT Lettrage FROM Ecriture WHERE CleCpt = ? AND NumEcr = ?");
    q.bind(1, cle.toStdString());
    q.bind(2, numero);
    return q.executeStep() ? q.getColumn(0).getInt() : -99;
}

inline QList<int> Lettrages(const QList<double>& numeros) {
    QList<int> l;
    for (double n : numeros)
        l << Lettrage(n);
    return l;
}

} // namespace tresor_essai
