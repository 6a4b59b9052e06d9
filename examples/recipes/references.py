"""Names and definitions of the reference systems of the example maps, by their EPSG numbers."""

_ETRS89 = ('GEOGCS["ETRS89",DATUM["European_Terrestrial_Reference_System_1989",'
           'SPHEROID["GRS 1980",6378137,298.257222101,AUTHORITY["EPSG","7019"]],'
           'AUTHORITY["EPSG","6258"]],PRIMEM["Greenwich",0,AUTHORITY["EPSG","8901"]],'
           'UNIT["degree",0.0174532925199433,AUTHORITY["EPSG","9122"]],AUTHORITY["EPSG","4258"]]')
_WGS84 = ('GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",6378137,298.257223563,'
          'AUTHORITY["EPSG","7030"]],AUTHORITY["EPSG","6326"]],'
          'PRIMEM["Greenwich",0,AUTHORITY["EPSG","8901"]],'
          'UNIT["degree",0.0174532925199433,AUTHORITY["EPSG","9122"]],'
          'AXIS["Latitude",NORTH],AXIS["Longitude",EAST],AUTHORITY["EPSG","4326"]]')


def _projected(name, projection, parameters, axes, number):
    listed = "".join(f'PARAMETER["{key}",{value}],' for key, value in parameters.items())
    return (f'PROJCS["{name}",{_ETRS89},PROJECTION["{projection}"],{listed}'
            f'UNIT["metre",1,AUTHORITY["EPSG","9001"]],{axes},AUTHORITY["EPSG","{number}"]]')


WGS84, EUROPE, UTM33 = 4326, 3035, 25833
REFERENCES = {
    WGS84: ("WGS 84", _WGS84),
    EUROPE: ("ETRS89-extended / LAEA Europe", _projected(
        "ETRS89-extended / LAEA Europe", "Lambert_Azimuthal_Equal_Area",
        {"latitude_of_center": 52, "longitude_of_center": 10, "false_easting": 4321000,
         "false_northing": 3210000}, 'AXIS["Northing",NORTH],AXIS["Easting",EAST]', EUROPE)),
    UTM33: ("ETRS89 / UTM zone 33N", _projected(
        "ETRS89 / UTM zone 33N", "Transverse_Mercator",
        {"latitude_of_origin": 0, "central_meridian": 15, "scale_factor": 0.9996,
         "false_easting": 500000, "false_northing": 0},
        'AXIS["Easting",EAST],AXIS["Northing",NORTH]', UTM33))}
