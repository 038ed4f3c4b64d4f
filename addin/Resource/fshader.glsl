// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#ifdef GL_ES
precision mediump int;
precision mediump float;
#endif

varying vec4 v_color;

void main()
{
    gl_FragColor = v_color;
}
