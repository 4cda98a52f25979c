// Frames, views, documents and their templates.
#pragma once
