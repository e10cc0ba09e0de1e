#pragma once

// Foundation's headers ask for it and use nothing of it.
