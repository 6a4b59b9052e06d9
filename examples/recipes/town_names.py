"""Names of the streets, parks and places of Möldenbrück, which does not exist."""

# Streets of the old town: rings around the market from the inside, each in arcs, and the streets
# from the market to the gates, clockwise from the east.
RINGS = [["Am Markt"],
         ["Kürschnergasse", "Böttchergasse", "Silberzeile"],
         ["Färbergraben", "Hinter der Mauer", "Töpfergasse", "Kleine Brüdergasse"],
         ["Ostwall", "Nordwall", "Westwall", "Südwall"]]
GATE_STREETS = ["Brückenstraße", "Große Fischergasse", "Mühlgasse", "Übergasse", "Weißgerbergasse",
                "Hohe Gasse", "Bahnhofstraße", "Gartenstraße"]
OLD_LANES = ["Ölgäßchen", "Zwingergasse", "Rosengäßchen", "Fünf-Brote-Gasse", "Köhlergasse",
             "Schulgasse", "Ratsgäßchen", "Käsezeile", "Nikolaikirchhof", "Am Anger"]
ROADS_OUT = ["Alte Salzstraße", "Hirschwalder Straße", "Langenfelder Chaussee"]

HILL_TERRACES = ["Am Weinberg", "Holunderstieg", "Schöne Aussicht", "Äskulapweg", "Panoramaweg"]
HILL_LANES = ["Fliederhang", "Heckenrosenweg", "Lindenallee", "Quittenweg", "Nußallee",
              "Sternwartenweg", "Ulmenstieg"]

# Neustadt's own Bahnhofstraße, Gartenstraße, Lindenallee, Am Anger and Schulgasse.
NEUSTADT_STREETS = ["Ringstraße", "Bahnhofstraße", "Gartenstraße", "Kesselschmiedestraße",
                    "Straße der Eisenbahner", "Uferstraße"]
NEUSTADT_CROSSINGS = ["Ahornstraße", "Am Anger", "Eschenstraße", "Kirchplatz", "Lindenallee",
                      "Mühlweg", "Platanenstraße", "Schulgasse", "Jägerstraße"]
GARDEN_LANES = [f"Weg {number}" for number in range(1, 13)]

ZALESI_TERRACES = ["Nábřežní", "Lipová", "Dlouhá", "Vinohradní"]
ZALESI_LANES = ["Za Humny", "Švestková", "Chmelová", "Žitná", "Školní", "U Kapličky", "Mostecká",
                "Řeznická", "Ševcovská", "Čapí", "Zvonařská", "Cihlářská", "Ořechová",
                "Ke Hřbitovu"]
BRIDGES = ["Alte Brücke", "Neue Brücke"]

PARKS = ["Nordpark", "Rosengarten", "Schloßgarten", "Volkspark am Wasserturm", "Alter Friedhof",
         "Kleingärten Abendröte", "Stadtwäldchen", "Lužní les", "Městské sady", "Ovocný sad"]

# Name, kind, and where it stands, in metres from the south-west corner of the sheets.
PLACES = [
    ("Rathaus", "public", 1500, 1722), ("Nikolaikirche", "church", 1395, 1785),
    ("Brüderkirche", "church", 1330, 1560), ("Heimatmuseum im Zwinger", "museum", 1700, 1855),
    ("Grundschule am Nordwall", "school", 1540, 2230),
    ("Gymnasium Möldenbrück", "school", 1905, 1960),
    ("Schloß Möldenbrück", "museum", 2065, 1775), ("Stadtbad", "public", 1060, 1900),
    ("Krankenhaus St. Barbara", "hospital", 760, 2330), ("Sternwarte", "museum", 310, 2485),
    ("Weinbergschule", "school", 520, 1835), ("Möldenbrück Nord", "station", 2010, 2560),
    ("Möldenbrück Hauptbahnhof", "station", 1475, 1085), ("Neustadt Süd", "station", 610, 95),
    ("Friedenskirche", "church", 1010, 640), ("Grundschule Neustadt", "school", 705, 420),
    ("Lokomotivmuseum", "museum", 1655, 905), ("Berufsschulzentrum", "school", 1345, 265),
    ("Fähre Uferstraße", "ferry", 2245, 250), ("Wasserturm", "museum", 240, 960),
    ("Základní škola Zálesí", "school", 2960, 1190), ("Kostel sv. Jiří", "church", 3105, 1530),
    ("Zálesí zastávka", "station", 3270, 860), ("Přívoz", "ferry", 2520, 270),
    ("Muzeum rybářství", "museum", 2885, 1745), ("Kaplička", "church", 3320, 2060),
    # On no sheet: what lies outside is told, not listed.
    ("Forsthaus Hirschwalde", "public", -640, 2980)]
