#pragma once
class Db;

// Adds a small demo venue: company, tariffs, room types, rooms, goods types, goods,
// member classes, members and employees. Does nothing when the demo rooms exist already.
void AddDemoVenue(Db& db);
