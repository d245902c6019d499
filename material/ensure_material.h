#pragma once

struct OpenPackage;

// Makes the record's material and hands it to the package with SetMaterial, once; loads compounds
// and phases on the way. False with the message in LastError. The material stays in the record
// also when the package refused it, so that a second call succeeds: a package is offered its
// material only once.
bool EnsureMaterial(OpenPackage &package);
