#pragma once

/// The operating system whose rules, folders and words apply. A value that is passed to every rule that differs by
/// host, so that both can be tested on either.
enum class Host { mac, linux };
