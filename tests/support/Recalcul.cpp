#include "support/Recalcul.h"

#include "posting/Verification.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QMap>
#include <SQLiteCpp/Statement.h>
#include <array>
#include <tuple>

namespace essai {

namespace {

struct CumulsCompte {
    Montant sde, cumD, cumC;
    std::array<Montant, 13> d{}, c{};
};

struct CumulsBudget {
    Montant reel;
    std::array<Montant, 13> m{};
};

QString Ecart(const QString& quoi, Montant attendu, Montant lu) {
    if (attendu == lu) return {};
    return QStringLiteral("%1 : attendu %2, lu %3\n")
        .arg(quoi, FormatFixe(attendu), FormatFixe(lu));
}

} // namespace

QStringList VidageTable(const std::string& table) {
    QStringList lignes;
    SQLite::Statement q(Base(), "SELECT * FROM \"" + table + "\"");
    while (q.executeStep()) {
        QString l = QString::fromStdString(table);
        for (int i = 0; i < q.getColumnCount(); ++i)
            l += u'|' + QString::fromUtf8(q.getColumnName(i)) + u'=' +
                 QString::fromUtf8(q.getColumn(i).getText());
        lignes << l;
    }
    return lignes;
}

QStringList Vidage() {
    QStringList tables;
    {
        SQLite::Statement q(Base(), "SELECT name FROM sqlite_master WHERE type='table' "
                                    "AND name<>'wSaisie' ORDER BY name");
        while (q.executeStep())
            tables << QString::fromUtf8(q.getColumn(0).getText());
    }
    QStringList tout;
    for (const QString& t : tables)
        tout << VidageTable(t.toStdString());
    tout.sort();
    return tout;
}

QStringList Difference(const QStringList& a, const QStringList& b) {
    QMap<QString, int> compte;
    for (const QString& l : a)
        ++compte[l];
    QStringList reste;
    for (const QString& l : b)
        if (compte.value(l) > 0)
            --compte[l];
        else
            reste << l;
    return reste;
}

Depart Photographier() {
    Depart d;
    SQLite::Statement q(Base(), "SELECT NumCpt FROM Compte WHERE CleCpt=?");
    q.bind(1, Cle.toStdString());
    while (q.executeStep()) {
        const QString n = QString::fromUtf8(q.getColumn(0).getText());
        LireCompte(Cle, n, d.comptes[n]);
        table::Budget b;
        if (LireBudget(Cle, n, b)) d.budgets[n] = b;
    }
    LireConstante(Cle, d.constante);
    return d;
}

QString EcartsAvecRecalcul(const Depart& depart) {
    std::map<QString, CumulsCompte> comptes;
    std::map<QString, CumulsBudget> budgets;
    for (const auto& [n, c] : depart.comptes) {
        comptes[n].sde = c.Sde;
        comptes[n].cumD = c.CumD;
        comptes[n].cumC = c.CumC;
        for (int i = 1; i <= 12; ++i) {
            comptes[n].d[i] = c.CumDM[i];
            comptes[n].c[i] = c.CumCM[i];
        }
    }
    for (const auto& [n, b] : depart.budgets) {
        budgets[n].reel = b.Reel;
        for (int i = 1; i <= 12; ++i)
            budgets[n].m[i] = b.ReelM[i];
    }
    table::Constante k = depart.constante;
    std::map<QChar, std::pair<Montant*, Montant*>> journaux = {{u'V', {&k.TDJV, &k.TCJV}},
                                                               {u'A', {&k.TDJA, &k.TCJA}},
                                                               {u'T', {&k.TDJT, &k.TCJT}},
                                                               {u'D', {&k.TDJD, &k.TCJD}},
                                                               {u'I', {&k.TDJI, &k.TCJI}}};
    std::map<QChar, std::pair<table::Mensuel*, table::Mensuel*>> journauxMois = {
        {u'V', {&k.TDJVM, &k.TCJVM}},
        {u'A', {&k.TDJAM, &k.TCJAM}},
        {u'T', {&k.TDJTM, &k.TCJTM}},
        {u'D', {&k.TDJDM, &k.TCJDM}},
        {u'I', {&k.TDJIM, &k.TCJIM}}};

    SQLite::Statement q(Base(), "SELECT NumEcr, NumCptEcr, DCEcr, MntEcr, Journal, Fin, "
                                "DateEcr, ErEcr FROM Ecriture WHERE CleCpt=? ORDER BY NumEcr");
    q.bind(1, Cle.toStdString());
    QChar journal;
    bool debut = true;
    while (q.executeStep()) {
        const QString n = QString::fromUtf8(q.getColumn(1).getText());
        const bool debit = QString::fromUtf8(q.getColumn(2).getText()) == QLatin1String("D");
        const Montant m = Montant::depuisDixMilliemes(q.getColumn(3).getInt64());
        const int mois = QString::fromUtf8(q.getColumn(6).getText()).mid(4, 2).toInt();
        if (debut) {
            const QString lettre = QString::fromUtf8(q.getColumn(4).getText());
            journal = lettre.isEmpty() ? QChar() : lettre.at(0);
        }
        debut = q.getColumn(5).getInt() != 0;
        k.LastNumEcrit = q.getColumn(0).getDouble();

        table::Compte compte;
        LireCompte(Cle, n, compte);
        QStringList touches{n};
        if (compte.Menu == 160) touches << QStringLiteral("400");
        if (compte.Menu == 170) touches << QStringLiteral("410");
        for (const QString& t : touches) {
            CumulsCompte& c = comptes[t];
            (debit ? c.cumD : c.cumC) += m;
            (debit ? c.d : c.c)[mois] += m;
        }
        const QString debutNumero = n.left(3);
        if (debutNumero >= QLatin1String("600") && debutNumero != QLatin1String("699") &&
            debutNumero != QLatin1String("799")) {
            if (!budgets.count(n) && !depart.budgets.count(n)) budgets[n].reel = compte.Sde;
            budgets[n].reel += m;
            budgets[n].m[mois] += m;
        }

        (debit ? k.TDJG : k.TCJG) += m.abs();
        (debit ? k.TDJGM : k.TCJGM)[mois] += m.abs();
        if (journaux.count(journal)) {
            *(debit ? journaux[journal].first : journaux[journal].second) += m.abs();
            (*(debit ? journauxMois[journal].first : journauxMois[journal].second))[mois] +=
                m.abs();
        }
        const QString er = QString::fromUtf8(q.getColumn(7).getText());
        if (er == QLatin1String("E1")) k.E1 += m;
        if (er == QLatin1String("E2")) k.E2 += m;
        if (er == QLatin1String("R1")) k.R1 += m;
        if (er == QLatin1String("R2")) k.R2 += m;
        const QString bilan = compte.Bilan.trimmed();
        for (auto [nom, champ] :
             std::initializer_list<std::pair<const char*, Montant*>>{{"BIENS", &k.BIENS},
                                                                     {"DAR", &k.DAR},
                                                                     {"MD", &k.MD},
                                                                     {"CONS", &k.CONS},
                                                                     {"SN", &k.SN},
                                                                     {"DAP", &k.DAP},
                                                                     {"ACTI", &k.ACTI}})
            if (bilan == QLatin1String(nom)) *champ += m;
    }
    k.Resultat = k.R2 - k.E2;

    QString ecarts;
    for (const auto& [n, c] : comptes) {
        table::Compte lu;
        if (!LireCompte(Cle, n, lu)) {
            ecarts += QStringLiteral("compte %1 absent\n").arg(n);
            continue;
        }
        ecarts += Ecart(n + QStringLiteral(" CumD"), c.cumD, lu.CumD);
        ecarts += Ecart(n + QStringLiteral(" CumC"), c.cumC, lu.CumC);
        ecarts += Ecart(n + QStringLiteral(" Solde"), c.sde + c.cumD + c.cumC, lu.Solde);
        for (int i = 1; i <= 12; ++i) {
            ecarts += Ecart(n + QStringLiteral(" CumDM%1").arg(i), c.d[i], lu.CumDM[i]);
            ecarts += Ecart(n + QStringLiteral(" CumCM%1").arg(i), c.c[i], lu.CumCM[i]);
        }
    }
    for (const auto& [n, b] : budgets) {
        table::Budget lu;
        if (!LireBudget(Cle, n, lu)) {
            ecarts += QStringLiteral("budget %1 absent\n").arg(n);
            continue;
        }
        ecarts += Ecart(n + QStringLiteral(" Reel"), b.reel, lu.Reel);
        for (int i = 1; i <= 12; ++i)
            ecarts += Ecart(n + QStringLiteral(" ReelM%1").arg(i), b.m[i], lu.ReelM[i]);
    }
    table::Constante lu;
    LireConstante(Cle, lu);
    if (lu.LastNumEcrit != k.LastNumEcrit)
        ecarts += QStringLiteral("LastNumEcrit : attendu %1, lu %2\n")
                      .arg(k.LastNumEcrit)
                      .arg(lu.LastNumEcrit);
    const QList<std::tuple<const char*, Montant, Montant>> totaux = {
        {"TDJG", k.TDJG, lu.TDJG},    {"TCJG", k.TCJG, lu.TCJG},
        {"TDJV", k.TDJV, lu.TDJV},    {"TCJV", k.TCJV, lu.TCJV},
        {"TDJA", k.TDJA, lu.TDJA},    {"TCJA", k.TCJA, lu.TCJA},
        {"TDJT", k.TDJT, lu.TDJT},    {"TCJT", k.TCJT, lu.TCJT},
        {"TDJD", k.TDJD, lu.TDJD},    {"TCJD", k.TCJD, lu.TCJD},
        {"TDJI", k.TDJI, lu.TDJI},    {"TCJI", k.TCJI, lu.TCJI},
        {"E1", k.E1, lu.E1},          {"E2", k.E2, lu.E2},
        {"R1", k.R1, lu.R1},          {"R2", k.R2, lu.R2},
        {"BIENS", k.BIENS, lu.BIENS}, {"DAR", k.DAR, lu.DAR},
        {"MD", k.MD, lu.MD},          {"CONS", k.CONS, lu.CONS},
        {"SN", k.SN, lu.SN},          {"DAP", k.DAP, lu.DAP},
        {"ACTI", k.ACTI, lu.ACTI},    {"Resultat", k.Resultat, lu.Resultat},
        {"SDE1", k.SDE1, lu.SDE1},    {"SDR1", k.SDR1, lu.SDR1}};
    for (const auto& [nom, attendu, valeur] : totaux)
        ecarts += Ecart(QString::fromUtf8(nom), attendu, valeur);
    for (int i = 1; i <= 12; ++i) {
        ecarts += Ecart(QStringLiteral("TDJGM%1").arg(i), k.TDJGM[i], lu.TDJGM[i]);
        ecarts += Ecart(QStringLiteral("TCJGM%1").arg(i), k.TCJGM[i], lu.TCJGM[i]);
        for (const auto& [lettre, champs] : journauxMois) {
            ecarts += Ecart(QStringLiteral("TDJ%1M%2").arg(lettre).arg(i), (*champs.first)[i],
                            (lu.*(lettre == u'V'   ? &table::Constante::TDJVM
                                  : lettre == u'A' ? &table::Constante::TDJAM
                                  : lettre == u'T' ? &table::Constante::TDJTM
                                  : lettre == u'D' ? &table::Constante::TDJDM
                                                   : &table::Constante::TDJIM))[i]);
            ecarts += Ecart(QStringLiteral("TCJ%1M%2").arg(lettre).arg(i), (*champs.second)[i],
                            (lu.*(lettre == u'V'   ? &table::Constante::TCJVM
                                  : lettre == u'A' ? &table::Constante::TCJAM
                                  : lettre == u'T' ? &table::Constante::TCJTM
                                  : lettre == u'D' ? &table::Constante::TCJDM
                                                   : &table::Constante::TCJIM))[i]);
        }
    }
    return ecarts;
}

QString EcartsDesLivres(const Depart& depart) {
    QString ecarts = EcartsAvecRecalcul(depart);
    if (!Verification()) ecarts += QStringLiteral("la vérification des livres échoue\n");
    return ecarts;
}

} // namespace essai
