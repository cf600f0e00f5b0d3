#pragma once
// Passage d'une ligne entière entre la base et un enregistrement, commun à toutes les
// routines Lire/Ajouter/Maj : la liste des champs de chaque table décide de tout.

#include "store/Base.h"
#include "store/Champs.h"

#include <QString>
#include <SQLiteCpp/Statement.h>
#include <string>

namespace acces {

inline void Lier(SQLite::Statement& q, int i, const QString& v) {
    q.bind(i, v.toStdString());
}
inline void Lier(SQLite::Statement& q, int i, double v) {
    q.bind(i, v);
}
inline void Lier(SQLite::Statement& q, int i, int v) {
    q.bind(i, v);
}

struct Noms {
    std::string liste, marques, affectations;
    int nombre = 0;
    template <class T> void operator()(const std::string& nom, T&, int) {
        if (nombre) {
            liste += ',';
            marques += ',';
            affectations += ',';
        }
        liste += '"' + nom + '"';
        marques += '?';
        affectations += '"' + nom + "\"=?";
        ++nombre;
    }
};

template <class R> const Noms& NomsDe() {
    static const Noms n = [] {
        Noms noms;
        R r;
        champs::Visiter(r, noms);
        return noms;
    }();
    return n;
}

struct Lecteur {
    SQLite::Statement& q;
    int i = 0;
    void operator()(const std::string&, QString& v, int largeur) {
        const QString t = QString::fromUtf8(q.getColumn(i++).getText());
        v = largeur > 0 ? TexteLu(t, largeur) : t;
    }
    void operator()(const std::string&, Montant& v, int) {
        v = Montant::depuisDixMilliemes(q.getColumn(i++).getInt64());
    }
    void operator()(const std::string&, table::Entier& v, int) {
        v = static_cast<table::Entier>(q.getColumn(i++).getInt());
    }
    void operator()(const std::string&, double& v, int) { v = q.getColumn(i++).getDouble(); }
    void operator()(const std::string&, bool& v, int) { v = q.getColumn(i++).getInt() != 0; }
    void operator()(const std::string&, std::uint8_t& v, int) {
        v = static_cast<std::uint8_t>(q.getColumn(i++).getInt() & 0xFF);
    }
};

struct Lieur {
    SQLite::Statement& q;
    QString table;
    int i = 1;
    void operator()(const std::string& nom, QString& v, int largeur) {
        // Les textes sans largeur d'enregistrement prennent celle du schéma.
        if (largeur <= 0) largeur = LargeurColonne(table, QString::fromStdString(nom));
        q.bind(i++, TexteRange(v, largeur).toStdString());
    }
    void operator()(const std::string&, Montant& v, int) {
        q.bind(i++, static_cast<std::int64_t>(v.dixMilliemes()));
    }
    void operator()(const std::string&, table::Entier& v, int) { q.bind(i++, int(v)); }
    void operator()(const std::string&, double& v, int) { q.bind(i++, v); }
    void operator()(const std::string&, bool& v, int) { q.bind(i++, v ? 1 : 0); }
    void operator()(const std::string&, std::uint8_t& v, int) { q.bind(i++, int(v)); }
};

// Lit la première ligne (ordre d'insertion) qui répond à la condition ; sans ligne,
// l'enregistrement reste tel qu'il était et la réponse est non.
template <class R, class... A>
bool LireLigne(const char* table, const std::string& condition, R& r, const A&... valeurs) {
    auto& q = Requete("SELECT " + NomsDe<R>().liste + " FROM \"" + table + "\" WHERE " + condition +
                      " ORDER BY rowid LIMIT 1");
    int i = 1;
    (Lier(q, i++, valeurs), ...);
    if (!q.executeStep()) return false;
    Lecteur l{q};
    champs::Visiter(r, l);
    q.reset();
    return true;
}

// Ajoute une ligne avec tous les champs ; rend le rowid de la ligne.
template <class R> std::int64_t AjouterLigne(const char* table, R& r) {
    const Noms& n = NomsDe<R>();
    auto& q = Requete(std::string("INSERT INTO \"") + table + "\" (" + n.liste + ") VALUES (" +
                      n.marques + ")");
    Lieur l{q, QString::fromLatin1(table)};
    champs::Visiter(r, l);
    q.exec();
    return Base().getLastInsertRowid();
}

// Réécrit tous les champs de la première ligne qui répond à la condition ; rend faux
// s'il n'y en a pas (rien n'est alors écrit).
template <class R, class... A>
bool MajLigne(const char* table, const std::string& condition, R& r, const A&... valeurs) {
    const Noms& n = NomsDe<R>();
    auto& q = Requete(std::string("UPDATE \"") + table + "\" SET " + n.affectations +
                      " WHERE rowid = (SELECT rowid FROM \"" + table + "\" WHERE " + condition +
                      " ORDER BY rowid LIMIT 1)");
    Lieur l{q, QString::fromLatin1(table)};
    champs::Visiter(r, l);
    (Lier(q, l.i++, valeurs), ...);
    return q.exec() > 0;
}

} // namespace acces
