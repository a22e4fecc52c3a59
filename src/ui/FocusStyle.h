#pragma once

// The platform's look with a focus mark a cashier sees from a step back: buttons, check
// boxes and radio buttons with the keyboard focus get a clear frame in the highlight colour.
void InstallFocusStyle();
