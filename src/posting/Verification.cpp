#include "posting/Verification.h"

#include "base/ErreurExecution.h"
#include "base/Valeur.h"
#include "posting/Totaux.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <array>

namespace {

// Les montants se montrent et se comparent à deux décimales.
QString F(Montant m) {
    return FormatFixe(m);
}

bool Egaux(std::initializer_list<Montant> montants) {
    const QString premier = F(*montants.begin());
    for (Montant m : montants)
        if (F(m) != premier) return false;
    return true;
}

Montant SommeMois(const table::Mensuel& m) {
    Montant s;
    for (int i = 1; i <= 12; ++i)
        s += m[i];
    return s;
}

Montant Colonne(SQLite::Statement& q, int i) {
    return q.getColumn(i).isNull() ? Montant()
                                   : Montant::depuisDixMilliemes(q.getColumn(i).getInt64());
}

struct TotauxBudget {
    Montant TotReel;
    std::array<Montant, 13> mois{};
    Montant calcule;
};

TotauxBudget LireTotauxBudget(const QString& cle) {
    std::string sql = "SELECT sum(Reel)";
    for (int i = 1; i <= 12; ++i)
        sql += QStringLiteral(",sum(ReelM%1)").arg(i, 2, 10, QLatin1Char('0')).toStdString();
    sql += " FROM Budget WHERE CleCpt=?";
    auto& q = Requete(sql);
    q.bind(1, cle.toStdString());
    TotauxBudget t;
    if (q.executeStep()) {
        t.TotReel = Colonne(q, 0);
        for (int i = 1; i <= 12; ++i) {
            t.mois[i] = Colonne(q, i);
            t.calcule += t.mois[i];
        }
    }
    q.reset();
    return t;
}

Montant SoldeCompte(const QString& cle, const char* numero) {
    table::Compte c;
    LireCompte(cle, QLatin1String(numero), c);
    return c.Solde;
}

} // namespace

void TotauxBalance(const QString& Choix, Montant& TotDeb, Montant& TotCre, Montant& SolDeb,
                   Montant& SolCre) {
    TotDeb = TotCre = SolDeb = SolCre = Montant();
    std::string sql = "SELECT Sde, CumD, CumC, Solde, ErCpt FROM Compte WHERE CleCpt=?";
    const QString choix = Choix.trimmed();
    if (choix == QLatin1String("G")) sql += " AND Menu<>160 AND Menu<>170";
    if (choix == QLatin1String("C")) sql += " AND Menu=170";
    if (choix == QLatin1String("F")) sql += " AND Menu=160";
    auto& q = Requete(sql);
    q.bind(1, CleCourante().toStdString());
    while (q.executeStep()) {
        const Montant sde = Colonne(q, 0), cumD = Colonne(q, 1), cumC = Colonne(q, 2);
        if (sde.estNul() && cumD.estNul() && cumC.estNul()) continue;
        TotDeb += cumD.abs();
        TotCre += cumC.abs();
        const Montant solde = Colonne(q, 3);
        const QString er = QString::fromUtf8(q.getColumn(4).getText()).trimmed();
        const bool positif = solde >= Montant();
        if (er == QLatin1String("E1") || er == QLatin1String("E2"))
            (positif ? SolDeb : SolCre) += solde.abs();
        else if (er == QLatin1String("R1") || er == QLatin1String("R2"))
            (positif ? SolCre : SolDeb) += solde.abs();
    }
}

void TotauxJournal(const QString& Journal, Montant& TotDeb, Montant& TotCre, int Mois) {
    TotDeb = TotCre = Montant();
    const bool tous = Journal.trimmed() == QLatin1String("*");
    const std::string filtre =
        std::string(" FROM Ecriture WHERE CleCpt=?") + (tous ? "" : " AND Journal=?");
    const auto lier = [&](SQLite::Statement& q) -> SQLite::Statement& {
        q.bind(1, CleCourante().toStdString());
        if (!tous) q.bind(2, Journal.toStdString());
        return q;
    };
    if (Mois <= 0) {
        // L'année entière : un seul passage sur les lignes, sans tri.
        auto& q = lier(Requete("SELECT sum(CASE WHEN DCEcr='D' THEN abs(MntEcr) ELSE 0 END), "
                               "sum(CASE WHEN DCEcr='D' THEN 0 ELSE abs(MntEcr) END)" +
                               filtre));
        if (q.executeStep()) {
            TotDeb = Colonne(q, 0);
            TotCre = Colonne(q, 1);
        }
        q.reset();
        return;
    }
    // Un mois : les lignes sont regroupées par le texte de leur mois, lu comme un nombre.
    auto& q = lier(Requete("SELECT substr(DateEcr,5,2), DCEcr='D', sum(abs(MntEcr))" + filtre +
                           " GROUP BY 1, 2"));
    while (q.executeStep()) {
        if (ValeurNumerique(QString::fromUtf8(q.getColumn(0).getText())) != Mois) continue;
        (q.getColumn(1).getInt() ? TotDeb : TotCre) += Colonne(q, 2);
    }
}

bool Verification() {
    const Session& s = session();
    const QString cle = CleCourante();
    QFile fichier(QDir(s.DossierDonnees).filePath(QStringLiteral("verif.txt")));
    if (!fichier.open(QIODevice::WriteOnly | QIODevice::Truncate))
        LeverErreurExecution(QStringLiteral("Impossible d'écrire le fichier %1 : %2")
                                 .arg(fichier.fileName(), fichier.errorString()));
    table::Constante k;
    LireConstante(cle, k);

    QStringList t;
    t << QStringLiteral("Société : ") + s.NomSocCourante
      << QStringLiteral("Exercice : ") + QString::number(s.ExerciceCourant) << QString();

    Montant bDeb, bCre, bSolDeb, bSolCre;
    TotauxBalance(QStringLiteral("G"), bDeb, bCre, bSolDeb, bSolCre);
    t << QStringLiteral("Vérification de la Balance Générale :")
      << QStringLiteral("[BTotDeb=") + F(bDeb) + QStringLiteral("] [BtotCre=") + F(bCre) + u']'
      << QStringLiteral("[BSolDeb=") + F(bSolDeb) + QStringLiteral("] [BSolCre=") + F(bSolCre) +
             u']';

    Montant jDeb, jCre;
    TotauxJournal(QStringLiteral("*"), jDeb, jCre, 0);
    t << QStringLiteral("Vérification du Journal Général :")
      << QStringLiteral("[JTotDeb=") + F(jDeb) + QStringLiteral("] [JtotCre=") + F(jCre) + u']';

    const TotauxBudget b = LireTotauxBudget(cle);
    t << QStringLiteral("Vérification du Budget");
    for (int i = 1; i <= 6; ++i)
        t << QStringLiteral("TotReel(%1)=%2   TotReel(%3)=%4")
                 .arg(i, 2, 10, QLatin1Char('0'))
                 .arg(F(b.mois[i]))
                 .arg(i + 6, 2, 10, QLatin1Char('0'))
                 .arg(F(b.mois[i + 6]));
    t << QStringLiteral("TotReel calculé=") + F(b.calcule)
      << QStringLiteral("TotReel mémorisé=") + F(b.TotReel) << QString();

    const Montant sommeD = k.TDJV + k.TDJA + k.TDJT + k.TDJD + k.TDJI;
    const Montant sommeC = k.TCJV + k.TCJA + k.TCJT + k.TCJD + k.TCJI;
    t << QStringLiteral("Vérification des totaux de la table Constante")
      << QStringLiteral("TDJV+TDJA+TDJT+TDJD+TDJI =") + F(sommeD) + QStringLiteral(" TDJG=") +
             F(k.TDJG)
      << QStringLiteral("TCJV+TCJA+TCJT+TCJD+TCJI =") + F(sommeC) + QStringLiteral(" TCJG=") +
             F(k.TCJG);
    for (const char* lettre : {"G", "V", "A", "T", "D", "I"}) {
        const ChampsJournal* j = ChampsDuJournal(QLatin1String(lettre));
        t << QStringLiteral("TDJ%1=%2 Somme des mois : %3   TCJ%1=%4 Somme des mois : %5")
                 .arg(QLatin1String(lettre), F(k.*(j->td)), F(SommeMois(k.*(j->tdm))),
                      F(k.*(j->tc)), F(SommeMois(k.*(j->tcm))));
    }

    const auto paire = [](const char* a, Montant x, const char* b, Montant y) {
        return QString::fromUtf8(a) + F(x) + QString::fromUtf8(b) + F(y);
    };
    t << QStringLiteral("SDE1=") + F(k.SDE1) << QStringLiteral("SDR1=") + F(k.SDR1)
      << paire("E1=", k.E1, "     E2=", k.E2) << paire("R1=", k.R1, "     R2=", k.R2)
      << paire("BIENS=", k.BIENS, "     DAR=", k.DAR) + QStringLiteral("     MD=") + F(k.MD)
      << paire("SN=", k.SN, "     DAP=", k.DAP) << paire("CONS=", k.CONS, "     ACTI=", k.ACTI)
      << paire("Resultat=", k.Resultat, "     E1-R1=", k.E1 - k.R1) +
             QStringLiteral("     R2-E2=") + F(k.R2 - k.E2)
      << QString() << paire("BIENS+DAR+MD=", k.BIENS + k.DAR + k.MD, " (E1=", k.E1) + u')'
      << paire("SN+DAP=", k.SN + k.DAP, " (R1=", k.R1) + u')'
      << paire("E2+R2=", k.E2 + k.R2, " (TotReel budget=", b.TotReel) + u' ' + F(b.calcule) + u')';

    const bool totaux = Egaux({bDeb, bCre, jDeb, jCre, k.TDJG, k.TCJG}) &&
                        Egaux({sommeD, k.TDJG}) && Egaux({sommeC, k.TCJG});
    const bool postes = Egaux({k.BIENS + k.DAR + k.MD, k.E1}) && Egaux({k.SN + k.DAP, k.R1});
    const bool resultat =
        Egaux({k.E1 - k.R1, k.SDE1 - k.SDR1 + k.Resultat}) && Egaux({k.R2 - k.E2, k.Resultat});
    const Montant gestion = k.E2 + k.R2;
    const bool budget = Egaux({b.TotReel, gestion}) ||
                        Egaux({b.TotReel, gestion - SoldeCompte(cle, "699")}) ||
                        Egaux({b.TotReel, gestion - SoldeCompte(cle, "799")});

    const QByteArray texte = (t.join(u'\n') + u'\n').toUtf8();
    if (fichier.write(texte) != texte.size() || !fichier.flush())
        LeverErreurExecution(QStringLiteral("Impossible d'écrire le fichier %1 : %2")
                                 .arg(fichier.fileName(), fichier.errorString()));
    fichier.close();
    return totaux && postes && resultat && budget;
}
